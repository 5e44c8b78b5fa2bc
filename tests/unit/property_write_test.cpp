#include "av_control_test.h"

using PropertyWrite = AvControl;

const char* const film = "http://tv.example/film.mp4";

/** @return an absolute address of `length` bytes */
static std::string address(size_t length) {
    return "http://" + std::string(length - 7, 'a');
}

TEST_F(PropertyWrite, ReadOnlyPropertiesAcceptAndIgnore) {
    for (const char* name : {"playPosition", "playTime", "error", "speed", "nrTracks"}) {
        const std::string before = video().read(name);
        EXPECT_TRUE(video().write(name, 99)) << name;
        EXPECT_EQ(before, video().read(name)) << name;
    }
}

TEST_F(PropertyWrite, PlainPropertiesKeepWhatIsWrittenAndGiveBackWhatWasThere) {
    const Value values[] = {"some text", browser().element, browser().element, "", 3, 0.25, true, nullptr, {}, "last"};
    for (const char* name : {"COMPONENT_TYPE_VIDEO", "currentTrackIndex", "persist", "cache", "onfocus", "onblur",
                             "onComponentChanged", "onParentalRatingChange", "onPlaySpeedChanged"}) {
        for (const Value& value : values) {
            EXPECT_TRUE(video().write(name, value)) << name;
            EXPECT_EQ(text(value), video().read(name)) << name;
        }
    }
    EXPECT_EQ("", delivered());
}

TEST_F(PropertyWrite, HandlersSayWhetherTextOrAFunctionWasStored) {
    for (const char* name : {"onPlayStateChange", "onPlayPositionChanged", "onDRMRightsError",
                             "onSelectedComponentChange", "onSelectedComponentChanged"}) {
        for (const Value& value : Arguments{"f()", browser().element, nullptr}) {
            video().write(name, value);
        }
    }
    expectLogged({"onPlayStateChange is string\n\n", "onPlayStateChange is handler set\n\n", "Function is string\n\n",
                  "onPlayPositionChanged JS handler set\n\n", "\n onDRMRightsError is string\n\n",
                  "\n onDRMRightsError is handler set\n\n", "onSelectedComponentChange is string\n\n",
                  "onSelectedComponentChange is handler set\n\n", "onSelectedComponentChanged is string\n\n",
                  "onSelectedComponentChanged is handler set\n\n"});
}

TEST_F(PropertyWrite, DataSetsTheSourceAndFirstStopsAMediaThatIsLoaded) {
    handler("onPlayStateChange");
    EXPECT_TRUE(video().write("data", "a.mp4"));
    EXPECT_EQ("7.SetSource(\"http://tv.example/app/a.mp4\")", delivered());
    EXPECT_EQ("1", video().read("speed"));
    television().refused = {"Stop"}; // which does not matter
    for (int state = MP_PLAYING; state <= MP_ERROR; ++state) {
        video().is(state);
        video()->SetSpeed(2);
        EXPECT_TRUE(video().write("data", film));
        EXPECT_EQ("0", video().read("playState"));
        EXPECT_EQ("0.0", video().read("speed"));
        EXPECT_EQ("7.Stop() 7.SetSource(\"http://tv.example/film.mp4\")", happened());
        EXPECT_EQ("onPlayStateChange(0) 7.sync.state(2,0)", delivered());
    }
}

TEST_F(PropertyWrite, DataThatIsNoAddressEndsQueueAndRepetition) {
    video().is(MP_PLAYING);
    for (const Value& value : Arguments{Value(), nullptr, 7, browser().element, "a.ts", "", address(2048)}) {
        const bool accepted = !NPVARIANT_IS_STRING(value.variant());
        video()->m_bUrlIsQueued = video()->m_bRepeateUntilStop = video()->m_bRepeateUtilNum = true;
        EXPECT_EQ(accepted, video().write("data", value));
        EXPECT_FALSE(video()->m_bUrlIsQueued || video()->m_bRepeateUntilStop || video()->m_bRepeateUtilNum);
        EXPECT_EQ(text(value), video().read("data"));
    }
    EXPECT_EQ("", delivered());
    EXPECT_EQ("1", video().read("playState"));
    const std::string refused = "Set property data failed invalid URL len: ";
    EXPECT_EQ((std::vector<std::string>{refused + "4", refused + "0", refused + "2048"}), errorLines());
    video()->m_bUrlIsQueued = video()->m_bRepeateUntilStop = video()->m_bRepeateUtilNum = true;
    EXPECT_TRUE(video().write("data", film));
    EXPECT_TRUE(video()->m_bUrlIsQueued && video()->m_bRepeateUntilStop && video()->m_bRepeateUtilNum);
}

TEST_F(PropertyWrite, AddressesAreTakenUpToTheirLimitAndRefusedWholeBeyond) {
    EXPECT_TRUE(video().write("data", address(1023)));
    EXPECT_EQ("7.SetSource(\"" + address(1023) + "\")", delivered());
    for (const size_t length : {1024u, 1025u, 2047u}) {
        EXPECT_FALSE(video().write("data", address(length)));
        EXPECT_EQ("", delivered()) << "the player keeps its source";
        EXPECT_EQ("data refused: " + std::to_string(length) + " bytes, at most 1023 are taken", errorLines().back());
    }
    EXPECT_EQ("\"" + address(1023) + "\"", video().read("data"));
}

TEST_F(PropertyWrite, SizesReachTheElementAndTheParameterAsText) {
    const std::pair<Value, const char*> rows[] = {
        {640, "640"},         {640.9, "640"},         {-0.5, "0"}, {"50%", "50%"}, {9999999, "9999999"},
        {-999999, "-999999"}, {"1234567", "1234567"}, {"", ""},    {"x", "x"}};
    for (const std::string name : {"width", "height"}) {
        for (const auto& [value, stored] : rows) {
            EXPECT_TRUE(video().write(name, value));
            EXPECT_EQ("element.setAttribute(\"" + name + "\"," + text(value) + ")", happened());
            EXPECT_EQ("\"" + std::string(stored) + "\"", video().read(name)) << text(value);
            EXPECT_EQ(*stored ? stored : "(none)", video().param(name.c_str()));
        }
        for (const Value& value : Arguments{1e300, -1e300, 10000000, -1000000, "12345678"}) {
            EXPECT_TRUE(video().write(name, value));
            EXPECT_EQ("", happened()) << text(value);
            EXPECT_EQ("\"x\"", video().read(name)) << "what does not fit changes nothing";
        }
        EXPECT_EQ(3, logged(5, name + " refused: 8 bytes, at most 7 are taken\n"));
        for (const Value& value : Arguments{true, nullptr, Value(), browser().element}) {
            EXPECT_TRUE(video().write(name, value));
            EXPECT_EQ("x", video().param(name.c_str())) << "other types are no size";
        }
        happened();
    }
    EXPECT_EQ(10u, errorLines().size());
    EXPECT_EQ(1280u, video()->m_nW) << "sizes count while playing only";
}

TEST_F(PropertyWrite, SizesWorkWithoutAnElementOrItsMethod) {
    browser().element->methods.clear();
    EXPECT_TRUE(video().write("width", 1));
    browser().objects = fake::Browser::Refuses;
    EXPECT_TRUE(video().write("width", 2));
    browser().objects = fake::Browser::GivesNull;
    EXPECT_TRUE(video().write("height", "3"));
    EXPECT_EQ("\"2\"", video().read("width"));
    EXPECT_EQ("\"3\"", video().read("height"));
    EXPECT_EQ(2u, errorLines().size());
}

TEST_F(PropertyWrite, FullScreenLocksTheSizesOfAllObjects) {
    Video& other = another();
    happened();
    EXPECT_TRUE(video().write("fullScreen", true));
    EXPECT_TRUE(other.write("width", 100));
    EXPECT_TRUE(other.write("height", 100));
    EXPECT_EQ("0 0", other.read("width") + " " + other.read("height"));
    EXPECT_EQ("", happened());
    EXPECT_EQ("true", video().read("fullScreen"));
    EXPECT_TRUE(video().write("fullScreen", "no"));
    EXPECT_TRUE(other.write("width", 100));
    EXPECT_EQ("\"100\"", other.read("width"));
}

TEST_F(PropertyWrite, LoopSetsACountOrEndlessRepetition) {
    const std::tuple<Value, int, bool, bool> rows[] = {{2, 2, true, false},           {3.9, 3, true, false},
                                                       {-1, -1, true, false},         {"3", 0, false, false},
                                                       {"infinite", 0, false, true},  {"Infinite", 0, false, false},
                                                       {"", 0, false, false},         {"infinite ", 0, false, false},
                                                       {notANumber, 0, false, false}, {nullptr, 0, false, false}};
    for (const auto& [value, count, counted, endless] : rows) {
        SCOPED_TRACE(text(value));
        video()->m_nRepeateNum = 0;
        video()->m_bRepeateUtilNum = video()->m_bRepeateUntilStop = false;
        EXPECT_TRUE(video().write("loop", value));
        EXPECT_EQ(count, video()->m_nRepeateNum);
        EXPECT_EQ(counted, video()->m_bRepeateUtilNum);
        EXPECT_EQ(endless, video()->m_bRepeateUntilStop);
    }
    EXPECT_EQ(4, logged(2, "Wrong value for loop parm!\n"));
    video().write("loop", "infinite");
    video().write("loop", 1e300);
    EXPECT_TRUE(video()->m_bRepeateUtilNum && video()->m_bRepeateUntilStop) << "the one leaves the other";
}

TEST_F(PropertyWrite, AnIdHasFiveBytesOrMoreAndALimit) {
    const auto reads = [&] { return video().read("id") + " " + video().param("id"); };
    video().is(MP_PLAYING);
    EXPECT_TRUE(video().write("id", "fives"));
    EXPECT_EQ("\"fives\" fives", reads());
    for (const Value& value : Arguments{"four", "", nullptr, 12345, std::string(2048, 'i')}) {
        EXPECT_FALSE(video().write("id", value));
        EXPECT_EQ(text(value) + " fives", reads());
    }
    EXPECT_EQ(5, logged(5, "Set property id failed!!\n"));
    EXPECT_TRUE(video().write("id", std::string(1023, 'i')));
    EXPECT_FALSE(video().write("id", std::string(1024, 'j')));
    EXPECT_EQ("\"" + std::string(1023, 'i') + "\" " + std::string(1023, 'i'), reads());
    EXPECT_EQ("", delivered()) << "the media plays on";
}
