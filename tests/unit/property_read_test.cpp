#include "av_control_test.h"

using PropertyRead = AvControl;

TEST_F(PropertyRead, PositionAndDurationDependOnTheState) {
    const char* const durations[] = {"undefined", "60000", "60000", "60000", "60000", "60000", "(none)", "(none)"};
    television().position = 5040;
    for (int state = MP_STOPPED; state <= MP_ERROR + 1; ++state) {
        video().is(state);
        EXPECT_EQ(state == MP_STOPPED ? "\"undefined\"" : "5040.0", video().read("playPosition")) << state;
        EXPECT_EQ(durations[state], video().read("playTime")) << state;
        EXPECT_EQ(state == MP_ERROR, video()->hasProperty(identifier("error")));
        television().position = 5040 + state; // asked while playing only
    }
    EXPECT_EQ("60000", video().slot(playTime));
    expectLogged({"getProperty playPosition:5040\n\n", "variant: string \"undefined\"\n"});
    EXPECT_EQ(5, logged(2, "getProperty Duration:60000\n\n"));
    NULL_TO_NPVARIANT(video()->m_pNpVarProperties[playPosition]);
    EXPECT_EQ("(none)", video().read("playPosition"));
}

TEST_F(PropertyRead, UnknownNamesHaveNoValue) {
    for (const char* name : {"PlayState", "src", "", "play", "PlayStateChange", "oncomponentchanged"}) {
        EXPECT_FALSE(video()->hasProperty(identifier(name))) << name;
        EXPECT_EQ("(none)", video().read(name)) << name;
        EXPECT_FALSE(video().write(name, 1)) << name;
    }
}

TEST_F(PropertyRead, AnUnknownDurationFailsWithALineOnStandardOutput) {
    video().is(MP_PLAYING);
    television().duration = -1;
    testing::internal::CaptureStdout();
    EXPECT_EQ("(none)", video().read("playTime"));
    EXPECT_EQ("getProperty Duration failed nData:-1\n", testing::internal::GetCapturedStdout());
    television().duration = 0;
    EXPECT_EQ("0", video().read("playTime"));
}

TEST_F(PropertyRead, AnObjectThatTheResultHeldIsGivenBack) {
    NPObject* held = browser().object("held");
    const std::pair<const char*, int> rows[] = {{"playPosition", MP_PLAYING}, {"playPosition", MP_PAUSED},
                                                {"playTime", MP_STOPPED},     {"playTime", MP_FINISHED},
                                                {"cache", MP_STOPPED},        {"loop", MP_STOPPED}};
    for (const auto& [name, state] : rows) {
        video().is(state);
        NPVariant result;
        OBJECT_TO_NPVARIANT(NPN_RetainObject(held), result);
        EXPECT_TRUE(video()->getProperty(identifier(name), &result));
        EXPECT_EQ(1u, held->referenceCount) << name;
        NPN_ReleaseVariantValue(&result);
    }
}

TEST_F(PropertyRead, NumbersAreReadWithoutAllocating) {
    video().is(MP_PLAYING);
    fake::failAllocation(0);
    for (const char* name : {"playPosition", "playTime", "playState", "speed", "error", "width", "nrTracks", "loop"}) {
        EXPECT_NE("(none)", video().read(name)) << name;
    }
    EXPECT_EQ(0, fake::countAllocations());
}

TEST_F(PropertyRead, AStateThatScriptWroteCountsByItsNumber) {
    const std::pair<Value, const char*> rows[] = {
        {9, "(none)"},       {-1, "(none)"},   {2.9, "60000"},    {-0.5, "undefined"},    {"1", "(none)"},
        {nullptr, "(none)"}, {true, "(none)"}, {1e300, "(none)"}, {notANumber, "(none)"}, {browser().element, "(none)"},
        {1.5, "60000"}};
    television().position = 7;
    for (const auto& [state, duration] : rows) {
        SCOPED_TRACE(text(state));
        happened();
        EXPECT_TRUE(video().write("playState", state));
        EXPECT_EQ(text(state), video().read("playState"));
        EXPECT_EQ(text(state) == "1.5" ? "7.0" : "\"undefined\"", video().read("playPosition"));
        EXPECT_EQ(duration, video().read("playTime"));
        EXPECT_EQ("", delivered()) << "nobody is told";
    }
}
