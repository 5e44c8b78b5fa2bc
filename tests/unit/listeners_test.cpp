#include "av_control_test.h"

using Listeners = AvControl;

TEST_F(Listeners, TenTypesAreKeptAndForgotten) {
    for (unsigned i = 0; i < 10; ++i) {
        EXPECT_FALSE(video()->GetIsPropertySetFromListener(i));
        listener(listenerTypes[i]);
        EXPECT_TRUE(video()->GetIsPropertySetFromListener(i)) << listenerTypes[i];
        EXPECT_EQ("[listener]", text(video()->m_pNpVarListeners[i]));
    }
    video()->SetPropertyFromListener(10, true);
    EXPECT_FALSE(video()->GetIsPropertySetFromListener(10));
    for (unsigned i = 0; i < 20; ++i) { // twice each: nothing to remove is no error
        EXPECT_EQ("(untouched)", video().call("removeEventListener", {listenerTypes[i % 10], browser().element, true}));
        EXPECT_FALSE(video()->GetIsPropertySetFromListener(i % 10));
        EXPECT_EQ("null", text(video()->m_pNpVarListeners[i % 10]));
    }
    EXPECT_EQ(0u, errorLines().size());
    EXPECT_EQ(10, logged(2, "Method addEventListener called\n"));
    EXPECT_EQ(20, logged(2, "videoplugin JS_removeEventListener called\n"));
}

TEST_F(Listeners, WrongArgumentsAreRefusedWithALine) {
    fake::ScriptObject* f = browser().function("f");
    const std::vector<std::string> wrong = {"Wrong input argument type !"}, unknown = {"Property not supported !"};
    const std::pair<Arguments, std::vector<std::string>> rows[] = {{{"PlayStateChange", f, Value()}, wrong},
                                                                   {{"PlayStateChange", f, 1}, wrong},
                                                                   {{"PlayStateChange", "f()"}, wrong},
                                                                   {{f, f}, wrong},
                                                                   {{"playstatechange", f}, unknown},
                                                                   {{"", f}, unknown},
                                                                   {{"PlayStateChange"}, {}},
                                                                   {{"PlayStateChange", f, true, 1}, {}}};
    for (const char* method : {"addEventListener", "removeEventListener"}) {
        const bool before = *method == 'r';
        video()->SetPropertyFromListener(PlayStateChange, before);
        for (const auto& [arguments, lines] : rows) {
            forgetLog();
            EXPECT_EQ("(untouched)", video().call(method, arguments));
            EXPECT_EQ(lines, errorLines());
            EXPECT_EQ(before, video()->GetIsPropertySetFromListener(PlayStateChange));
        }
    }
}

TEST_F(Listeners, ATypeHasOneListenerTheLastOne) {
    fake::ScriptObject* first = listener("PlayStateChange");
    fake::ScriptObject* last = browser().function("last");
    video().call("addEventListener", {"PlayStateChange", last});
    video().call("addEventListener", {"PlayStateChange", last});
    EXPECT_EQ(1u, first->referenceCount);
    EXPECT_EQ(2u, last->referenceCount);
    EXPECT_EQ("last(event{0,0,0,1}) 7.sync.state(2,1)", reported(eMEDIA_CALLBACK_PLAYING));
}

TEST_F(Listeners, WithoutMemoryForTheTypeNothingChanges) {
    listener("PlayStateChange");
    for (const char* method : {"addEventListener", "removeEventListener"}) {
        for (int nth = 1; nth < 3; ++nth) { // the method's name for the log, then the type
            fake::failAllocation(nth);
            EXPECT_EQ("(untouched)", video().call(method, {"PlayStateChange", browser().element}));
            fake::failAllocation(0);
        }
        video().call("addEventListener", {"PlayStateChange", browser().window});
    }
    EXPECT_EQ(2, logged(5, "Unable to allocate string buffer !\n"));
    EXPECT_EQ("[window]", text(video()->m_pNpVarListeners[PlayStateChange]));
}

TEST_F(Listeners, AListenerMayBeReplacedOrAskedAgainWhileItRuns) {
    bool ran = false;
    browser().drop(listener("PlayStateChange", [&] {
        if (!ran) {
            ran = true;
            video().call("play");
            browser().deliver(); // the engine may turn inside a function, as for an alert
            listener("PlayStateChange");
        }
    }));
    EXPECT_EQ("listener(event{0,0,0,1}) 7.Play(0) 7.SetSpeed(1.0) 7.sync.state(2,1)",
              reported(eMEDIA_CALLBACK_PLAYING));
}

TEST_F(Listeners, OnlyAFunctionThatIsThereIsCalled) {
    const auto calls = [&](int index, bool isListener) {
        return video()->ExecutePropertyJSFunctionArgs(index, nullptr, 0, isListener);
    };
    EXPECT_FALSE(calls(onPlayStateChange, false));
    video().write("onPlayStateChange", "f()");
    EXPECT_FALSE(calls(onPlayStateChange, false));
    EXPECT_FALSE(calls(focus, true));
    EXPECT_EQ(2, logged(3, "ExecutePropertyJSFunctionArgs, m_pNpVarProperties[onPlayStateChange] is NOT NPObject\n"));
    EXPECT_EQ(1, logged(3, "ExecutePropertyJSFunctionArgs, m_pNpVarListeners[focus] is NOT NPObject\n"));
    EXPECT_EQ("", happened()) << "nor is the adapter told";

    video().write("onPlayStateChange", browser().element); // an object that cannot be called
    EXPECT_FALSE(calls(onPlayStateChange, false));
    EXPECT_EQ("7.sync.state(2,0)", happened()) << "an outcome does not matter to the adapter";
    EXPECT_EQ(1, logged(2, "ExecutePropertyJSFunctionArgs, dispatch m_pNpVarProperties[onPlayStateChange]\n"));
    OBJECT_TO_NPVARIANT(nullptr, video()->m_pNpVarListeners[PlaySpeedChanged]);
    EXPECT_FALSE(calls(PlaySpeedChanged, true));
    EXPECT_EQ("7.sync.speed(1.0)", happened());
    handler("onFullScreenChange");
    EXPECT_TRUE(calls(onFullScreenChange, false));
    for (const int index : {-1, 29, 10000}) {
        EXPECT_FALSE(calls(index, false) || calls(index, true));
    }
    EXPECT_EQ("onFullScreenChange()", happened());
}

TEST_F(Listeners, TheAdapterHearsOfAParentalRatingFromAListenerToo) {
    NPVariant arguments[4] = {Value(0).variant(), Value(0).variant(), Value(0).variant(), Value(true).variant()};
    listener("ParentalRatingChange");
    EXPECT_TRUE(video()->ExecutePropertyJSFunctionArgs(ParentalRatingChange, arguments, 4, true));
    EXPECT_EQ("listener(0,0,0,true) 7.sync.rating(1)", happened());
    EXPECT_TRUE(video()->ExecutePropertyJSFunctionArgs(ParentalRatingChange, nullptr, 0, true));
    happened();
}

TEST_F(Listeners, TheOperationsForOtherCallersReachTheirHandlers) {
    handler("onDRMRightsError");
    handler("onSelectedComponentChanged");
    listener("DRMRightsError");
    listener("SelectedComponentChange");
    char content[] = "content", system[] = "", issuer[] = "http://issuer";
    video()->onDRMRightsErrorFun(2, content, system, issuer);
    video()->onSelectedComponentChangedFun(1);
    EXPECT_EQ("onDRMRightsError(2,\"content\",\"\",\"http://issuer\") onSelectedComponentChanged(1)", happened());
}
