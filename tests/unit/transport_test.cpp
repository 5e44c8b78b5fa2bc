#include "av_control_test.h"

using Transport = AvControl;

TEST_F(Transport, PlayPlacesThePictureAndActsByState) {
    television().quiet.clear();
    using Text = const char*;
    // state, requested speed, refused command, commands, states that the page hears of, state and speed after
    const std::tuple<PlayStates_e, Value, Text, Text, Text, Text, Text> rows[] = {
        {MP_STOPPED, 1, "", " 7.Play(0) 7.SetSpeed(1.0)", "3", "3", "1.0"},
        {MP_STOPPED, -2.9, "", " 7.Play(0) 7.SetSpeed(-2.0)", "3", "3", "-2.0"},
        {MP_STOPPED, 1, "Play", " 7.Play(0)", "6", "6", "0.0"},
        {MP_STOPPED, 0, "", " 7.Pause()", "2", "2", "0.0"},
        {MP_STOPPED, 0.9, "Pause", " 7.Pause()", "6", "6", "0.0"},
        {MP_PLAYING, 2, "Play", " 7.Play(0) 7.SetSpeed(2.0)", "", "1", "2.0"},
        {MP_PLAYING, "1", "", " 7.Pause()", "2", "2", "0.0"},
        {MP_CONNECTING, 4, "", " 7.Play(0) 7.SetSpeed(4.0)", "", "3", "4.0"},
        {MP_PAUSED, 1, "", " 7.Resume() 7.SetSpeed(1.0)", "", "2", "1.0"},
        {MP_PAUSED, 1, "Resume", " 7.Resume()", "36", "6", "0.0"},
        {MP_PAUSED, 0, "", "", "", "2", "5.0"},
        {MP_FINISHED, 1, "", " 7.Play(0) 7.SetSpeed(1.0)", "3", "3", "1.0"},
        {MP_FINISHED, Value(), "", " 7.Play(0) 7.SetSpeed(0.0)", "3", "3", "0.0"},
        {MP_FINISHED, 3, "Play", " 7.Play(0)", "36", "6", "0.0"},
        {MP_ERROR, 1, "", "", "", "6", "5.0"}};
    std::string heard;
    handler("onPlayStateChange", [&] { heard += video().read("playState"); });
    for (const auto& [state, requested, refused, commands, events, state_after, speed_after] : rows) {
        SCOPED_TRACE(std::to_string(state) + " play(" + text(requested) + ") refused: " + refused);
        video()->SetError(AV_FORMAT_NOT_SUPPORTED);
        video().is(state);
        video()->SetSpeed(5);
        television().refused = {refused};
        happened();
        heard.clear();
        EXPECT_EQ("true", video().call("play", {requested}));
        EXPECT_EQ(std::string("7.SetWindow(0,0,1280,720)") + commands, happened()) << "the page hears after the call";
        EXPECT_EQ(state_after, video().read("playState"));
        EXPECT_EQ(speed_after, video().read("speed"));
        EXPECT_EQ(*refused && *events ? "2" : "0", video().read("error"));
        browser().deliver();
        EXPECT_EQ(events, heard) << "each with the state of its own event";
    }
    EXPECT_EQ(2, logged(2, "PLAY OK\n"));
    EXPECT_EQ(1, logged(2, "PLAY FAIL\n"));
    EXPECT_EQ(2, logged(2, "SPEED IS NOT SUPPORTED TYPE\n"));
}

TEST_F(Transport, PlayTakesOneArgumentAndOtherwiseTheNormalSpeed) {
    for (const Arguments& arguments : {Arguments{}, Arguments{2, 3}}) {
        video().is(MP_STOPPED);
        video().call("play", arguments);
        EXPECT_EQ("7.Play(0) 7.SetSpeed(1.0)", happened());
    }
}

TEST_F(Transport, APausedObjectRemembersWhereItStopped) {
    for (const PlayStates_e state : {MP_PLAYING, MP_CONNECTING, MP_BUFFERING}) {
        video().is(state);
        television().position = 1000 + state;
        video().call("play", {0});
        EXPECT_EQ(std::to_string(1000 + state), video().read("playPosition"));
    }
    video().is(MP_PLAYING);
    television().position = -1;
    video().call("play", {0});
    EXPECT_EQ("1004", video().read("playPosition")) << "an unknown position is not stored";
}

TEST_F(Transport, StopEndsEveryStateAndForgetsTheQueue) {
    handler("onPlayStateChange");
    for (const bool stops : {true, false}) {
        television().refused = {stops ? "" : "Stop"};
        for (int state = MP_STOPPED; state <= MP_ERROR; ++state) {
            SCOPED_TRACE(state);
            video().is(state);
            video()->SetSpeed(3);
            video()->m_bUrlIsQueued = video()->m_bRepeateUntilStop = video()->m_bRepeateUtilNum = true;
            EXPECT_EQ(text(Value(stops)), video().call("stop", {"surplus"}));
            EXPECT_EQ(std::to_string(stops ? MP_STOPPED : state), video().read("playState"));
            EXPECT_EQ(stops && state ? "7.Stop() onPlayStateChange(0) 7.sync.state(2,0)" : "7.Stop()", delivered());
            EXPECT_FALSE(video()->m_bUrlIsQueued || video()->m_bRepeateUntilStop);
            EXPECT_TRUE(video()->m_bRepeateUtilNum);
            EXPECT_EQ("0 3.0", video().slot(playPosition) + " " + video().slot(speed));
        }
    }
    television().refused = {};
    video().write("playState", 17);
    EXPECT_EQ("false", video().call("stop"));
    EXPECT_EQ("", delivered());
}

TEST_F(Transport, SeekMovesTheStateWhenThePlayerAccepts) {
    const std::pair<PlayStates_e, std::string> rows[] = {{MP_STOPPED, ""},     {MP_PLAYING, "4"},   {MP_PAUSED, ""},
                                                         {MP_CONNECTING, "3"}, {MP_BUFFERING, "3"}, {MP_FINISHED, ""}};
    handler("onPlayStateChange");
    handler("onPlayPositionChanged");
    for (const auto& [state, heard] : rows) {
        SCOPED_TRACE(state);
        video().is(state);
        EXPECT_EQ("true", video().call("seek", {5000.75}));
        EXPECT_EQ("5000.75", video().slot(playPosition));
        EXPECT_EQ(heard.empty() ? std::to_string(state) : heard, video().read("playState"));
        EXPECT_EQ("7.Seek(5000)" +
                      (heard.empty() ? "" : " onPlayStateChange(" + heard + ") 7.sync.state(2," + heard + ")"),
                  delivered());
    }
    EXPECT_EQ("true", video().call("seek", {60000.0})) << "the end itself";
    EXPECT_EQ("true", video().call("seek", {-1.0}));
    television().duration = 0;
    EXPECT_EQ("true", video().call("seek", {1e9})) << "no end is known";
}

TEST_F(Transport, ARefusedSeekTellsThePageWhereItStillIs) {
    handler("onPlayPositionChanged");
    video().is(MP_PLAYING);
    const std::tuple<int, const char*, std::string, double> rows[] = {
        {4000, "", "", 4001}, {-1, "", "", 10}, {4000, "Seek", "7.Seek(10) ", 10}, {4000, "", "", 1e18}};
    for (const auto& [duration, refused, commands, position] : rows) {
        television().duration = duration;
        television().refused = {refused};
        EXPECT_EQ("false", video().call("seek", {position}));
        EXPECT_EQ(commands + "onPlayPositionChanged(0)", delivered()) << "nothing numeric is stored";
    }
    EXPECT_EQ(1, logged(5, "can not get video duration\n"));
    EXPECT_EQ(2, logged(2, "seek pos is error\n"));
    EXPECT_EQ(3, logged(2, "seek position is error\n"));
    EXPECT_EQ(1, logged(2, "seek mmlib returned NOT OK\n"));
    television().refused = {};
    video().call("seek", {1234.9});
    video().call("seek", {99999.0});
    EXPECT_EQ("7.Seek(1234) onPlayPositionChanged(1234)", delivered());
}

TEST_F(Transport, ASeekPositionIsADouble) {
    for (const Arguments& arguments : {Arguments{}, Arguments{5000}, Arguments{"5000"}, Arguments{notANumber}}) {
        EXPECT_EQ("false", video().call("seek", arguments));
    }
    EXPECT_EQ("", delivered());
    EXPECT_EQ(4, logged(5, "seek argument type not allowed\n"));
}

TEST_F(Transport, VolumeIsOnlyChecked) {
    for (const Value& volume : Arguments{0, 101, 101.9, -0.9}) {
        EXPECT_EQ("true", video().call("setVolume", {volume})) << text(volume);
    }
    for (const Value& volume : Arguments{102, -1, 102.0, "50", true, nullptr, Value(), notANumber, 1e300, -1e300}) {
        EXPECT_EQ("false", video().call("setVolume", {volume})) << text(volume);
    }
    EXPECT_EQ("", delivered());
}

TEST_F(Transport, TheStateModelKeepsWhatItIsTold) {
    forgetLog();
    video().is(MP_STOPPED);
    EXPECT_EQ(0u, fake::log().lines.size());
    video().is(42);
    EXPECT_EQ(1, logged(2, "currentState = 0,newState = 42\n"));
    EXPECT_EQ("42", video().read("playState"));
    video()->SetError(-3);
    video()->SetSpeed(0.5);
    EXPECT_EQ("-3", text(*video()->GetErrorProperty()));
    EXPECT_EQ("0.5", text(*video()->GetSpeedProperty()));
    video().is(MP_ERROR);
    EXPECT_EQ("true", video().call("stop"));
    EXPECT_EQ("true", video().call("play"));
    EXPECT_EQ("-3", video().read("error")) << "the last error stays";
    happened();
    television().refused = {"Stop"};
    video()->DestoryPlayer();
    EXPECT_EQ("7.Stop()", happened());
    EXPECT_EQ("3", video().read("playState"));
    EXPECT_EQ(1, logged(2, "ERROR from destructor, while stopping mmlib\n"));
}
