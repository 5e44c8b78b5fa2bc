#include "av_control_test.h"

using MediaEvents = AvControl;

namespace {

struct EventCase {
    eMEDIA_CALLBACK_EVENT event;
    int code;
    PlayStates_e state;
    std::string handler;      // what happens when all handlers are set
    std::string event_object; // the argument of the listener that takes the handler's place, if one does
    PlayStates_e state_after;
};

// How a failing row is shown.
void PrintTo(const EventCase& row, std::ostream* out) {
    *out << "event " << row.event << " code " << row.code << " in state " << row.state;
}

const std::vector<std::string> handlers = words(
    "onPlayStateChange onPlaySpeedChanged onPlayPositionChanged onFullScreenChange onfocus onblur onDRMRightsError "
    "onSelectedComponentChange onComponentChanged onSelectedComponentChanged onParentalRatingChange");

const std::vector<EventCase> events = {
    {eMEDIA_CALLBACK_STOPPED, 0, MP_PLAYING, "", "", MP_PLAYING},
    {eMEDIA_CALLBACK_PAUSED, 0, MP_PLAYING, "", "", MP_PLAYING},
    {eMEDIA_CALLBACK_CONNECTING, 0, MP_PLAYING, "", "", MP_PLAYING},
    {eMEDIA_CALLBACK_PLAYING, 0, MP_PLAYING, "", "", MP_PLAYING},
    {eMEDIA_CALLBACK_PLAYING, 0, MP_ERROR, "onPlayStateChange(1) 7.sync.state(2,1)", "0,0,0,1", MP_PLAYING},
    {eMEDIA_CALLBACK_BUFFERING, 0, MP_BUFFERING, "", "", MP_BUFFERING},
    {eMEDIA_CALLBACK_BUFFERING, 0, MP_PAUSED, "", "", MP_PAUSED},
    {eMEDIA_CALLBACK_BUFFERING, 0, MP_CONNECTING, "onPlayStateChange(4) 7.sync.state(2,4)", "0,0,0,4", MP_BUFFERING},
    {eMEDIA_CALLBACK_FINISHED, 0, MP_FINISHED, "", "", MP_FINISHED},
    {eMEDIA_CALLBACK_FINISHED, 0, MP_STOPPED, "7.Stop() onPlayStateChange(5) 7.sync.state(2,5)", "0,0,0,5",
     MP_FINISHED},
    {eMEDIA_CALLBACK_POSITION_CHANGED, 0, MP_PLAYING, "onPlayPositionChanged(5040.0)", "5040.0,0,0,0", MP_PLAYING},
    {eMEDIA_CALLBACK_POSITION_CHANGED, 0, MP_PAUSED, "onPlayPositionChanged(0.0)", "0.0,0,0,0", MP_PAUSED},
    {eMEDIA_CALLBACK_SPEED_CHANGED, 0, MP_PAUSED, "onPlaySpeedChanged(-2) 7.sync.speed(-2.0)", "0,-2,0,0", MP_PAUSED},
    {eMEDIA_CALLBACK_ERROR, 4, MP_ERROR, "", "", MP_ERROR},
    {eMEDIA_CALLBACK_ERROR, 4, MP_PLAYING, "7.Stop() onPlayStateChange(6) 7.sync.state(2,6)", "0,0,0,6", MP_ERROR},
    {eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, 1, MP_PLAYING, "onSelectedComponentChanged(1)", "0,0,1,0", MP_PLAYING},
    {eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED, 7, MP_PLAYING,
     "onParentalRatingChange(null,null,null,true) 7.sync.rating(1)", "", MP_PLAYING},
    {eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED, 0, MP_PLAYING,
     "onParentalRatingChange(null,null,null,false) 7.sync.rating(0)", "", MP_PLAYING},
    {eMEDIA_CALLBACK_DRM_RIGHTS_ERROR, 2, MP_PLAYING, "onDRMRightsError(2,null,null,null)", "", MP_PLAYING},
    {eMEDIA_CALLBACK_MAX, 1, MP_PLAYING, "", "", MP_PLAYING}};

} // namespace

class EachMediaEvent : public AvControl, public testing::WithParamInterface<EventCase> {
protected:
    EachMediaEvent() {
        television().position = 5040;
        television().speedInForce = -2;
    }

    /** Sets functions that the page itself forgets at once. */
    void setFunctions(bool listeners, const std::function<void()>& body) {
        for (const std::string& name : handlers) {
            browser().drop(handler(name, body));
        }
        for (const std::string& type : listenerTypes) {
            if (listeners) {
                browser().drop(listener(type, body));
            }
        }
    }

    std::string report() {
        video().is(GetParam().state);
        return reported(GetParam().event, GetParam().code);
    }
};

TEST_P(EachMediaEvent, ReachesTheHandlerWithPlainValues) {
    setFunctions(false, nullptr);
    EXPECT_EQ(GetParam().handler, report());
    EXPECT_EQ(std::to_string(GetParam().state_after), video().read("playState"));
}

TEST_P(EachMediaEvent, ReachesTheListenerInsteadWithTheEventObject) {
    setFunctions(true, nullptr);
    std::string expected = GetParam().handler;
    if (!GetParam().event_object.empty()) {
        const size_t from = expected.find("on"), to = expected.find(')', from);
        expected.replace(from, to - from, "listener(event{" + GetParam().event_object + "}");
    }
    EXPECT_EQ(expected, report());
}

TEST_P(EachMediaEvent, IsAppliedWithoutAnybodyToTell) {
    EXPECT_EQ(GetParam().handler.find("7.Stop()") == 0 ? "7.Stop()" : "", report());
    EXPECT_EQ(std::to_string(GetParam().state_after), video().read("playState"));
}

TEST_P(EachMediaEvent, LetsAFunctionRemoveItselfWhileItRuns) {
    setFunctions(true, [this] {
        for (const std::string& name : handlers) {
            EXPECT_TRUE(video().write(name, nullptr));
        }
        for (const std::string& type : listenerTypes) {
            video().call("removeEventListener", {type, browser().element});
        }
    });
    report();
    EXPECT_EQ(std::to_string(GetParam().state_after), video().read("playState"));
}

TEST_P(EachMediaEvent, MayEndTheObjectFromItsHandlerOrListener) {
    for (const bool listeners : {false, true}) {
        setFunctions(listeners, [this] { video().destroy(); });
        report();
        m_videos.front() = std::make_unique<Video>();
    }
    happened();
}

INSTANTIATE_TEST_SUITE_P(MediaEvents, EachMediaEvent, testing::ValuesIn(events),
                         [](const auto& row) { return "Row" + std::to_string(row.index); });

TEST_F(MediaEvents, IgnoredReportsSaySo) {
    for (const auto& [event, state] :
         {std::pair(eMEDIA_CALLBACK_PLAYING, MP_PLAYING), std::pair(eMEDIA_CALLBACK_BUFFERING, MP_PAUSED),
          std::pair(eMEDIA_CALLBACK_FINISHED, MP_FINISHED), std::pair(eMEDIA_CALLBACK_ERROR, MP_ERROR)}) {
        video().is(state);
        video()->MediaCallback(event, 0, nullptr);
    }
    expectLogged({"current playstate is PLAYING ,so return \n", "current playstate is BUFFERING or 2 ,so return \n",
                  "current playstate is FINISHED ,so return \n", "current playstate is ERROR ,so return \n"});
    EXPECT_EQ(0, logged(2, "!!!MediaCallback called end!!!\n"));
    video()->MediaCallback(13, 7, nullptr);
    EXPECT_EQ(5, logged(2, "!!!MediaCallback called!!!\n"));
    expectLogged({"MediaCallback nEvent = 13, eEventCode:7\n\n", "!!!MediaCallback called end!!!\n"});
}

TEST_F(MediaEvents, AnErrorStoresItsCodeAndStopsThePlayer) {
    for (const int code : {4, 0, -7, 100}) {
        video().is(MP_PLAYING);
        video()->SetSpeed(2);
        video().report(eMEDIA_CALLBACK_ERROR, code);
        EXPECT_EQ(std::to_string(code), video().read("error"));
        EXPECT_EQ("0.0", video().read("speed"));
    }
    video().report(eMEDIA_CALLBACK_ERROR, 5);
    EXPECT_EQ("100", video().read("error")) << "the second one is ignored";
}

TEST_F(MediaEvents, ThePositionComesFromThePlayerOrFromWhatIsStored) {
    handler("onPlayPositionChanged");
    video().is(MP_PLAYING);
    for (const int position : {-1, 123}) {
        television().position = position;
        video().report(eMEDIA_CALLBACK_POSITION_CHANGED);
    }
    EXPECT_EQ("onPlayPositionChanged(0.0) onPlayPositionChanged(123.0)", happened());
    EXPECT_EQ("\"undefined\"", video().slot(playPosition)) << "the report stores nothing";
    video().call("play", {0});
    video().report(eMEDIA_CALLBACK_POSITION_CHANGED);
    video().call("seek", {77.5});
    EXPECT_EQ("7.Pause() onPlayPositionChanged(123.0) 7.Seek(77) onPlayPositionChanged(77.5)",
              reported(eMEDIA_CALLBACK_POSITION_CHANGED));
}

TEST_F(MediaEvents, AHandlerMayCallBackIntoTheObject) {
    handler("onPlayStateChange", [&] {
        video().call("stop");
        video().write("data", "http://tv.example/next.mp4");
        video().write("onPlayStateChange", nullptr);
    });
    EXPECT_EQ("onPlayStateChange(1) 7.Stop() 7.SetSource(\"http://tv.example/next.mp4\") 7.sync.state(2,0)",
              reported(eMEDIA_CALLBACK_PLAYING))
        << "the adapter hears of the state that is current";
}

TEST_F(MediaEvents, TheEndWithAQueueMayEndTheObject) {
    handler("onPlayStateChange", [&] { video().destroy(); });
    video().is(MP_PLAYING);
    video().call("queue", {"http://tv.example/next.mp4"});
    EXPECT_EQ("onPlayStateChange(5) 7.Stop() 7.RemoveCallback() 7.Close()", reported(eMEDIA_CALLBACK_FINISHED));
}
