#include "av_control_test.h"

#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"

using LifeCycle = AvControl;

TEST_F(LifeCycle, DescribesItselfBeforeAnyInstanceExists) {
    EXPECT_STREQ("video/mpeg:mp4:Video Plugin;video/mpeg4:mp4:Video Plugin;video/mp4:mp4:Video Plugin;"
                 "audio/mpeg:mp4:Audio Plugin;audio/mp4:mp4:Audio Plugin;"
                 "application/dash+xml:mpd:DASH plugin;application/dash+xml:xml:DASH plugin;"
                 "application/vnd.apple.mpegurl:m3u8:HLS Plugin;video/x-ms-asf:wmv:WMV",
                 VideoPlugin::GetMIMEDescription());
    EXPECT_STREQ("Video Player", VideoPlugin::GetPluginNameString());
    EXPECT_STREQ("Video Player", VideoPlugin::GetPluginDescriptionString());
}

TEST_F(LifeCycle, OpensAPlayerAndClosesItEvenUninitialised) {
    forgetLog();
    Video& made = another(Video::Constructed);
    EXPECT_EQ("channel(null) 8.Open() 8.SetUserAgent() 8.AddCallback()", happened());
    EXPECT_EQ(made.plugin(), television().players[8].userData);
    expectLogged({"cehtml VideoPlugin created starting !!!\n\n", "CreatePlayer-- -------- 8\n", "USER_AGENT set\n",
                  "cehtml VideoPlugin created Finished !!!\n\n"});
    EXPECT_EQ(8, made->m_hPlayer);
    EXPECT_EQ(1280u, made->m_nW);
    EXPECT_EQ(720u, made->m_nH);
    EXPECT_FALSE(made->m_pNpVarProperties || made->m_pNpVarListeners || made->m_ppsParamValues ||
                 made->m_DOMEventClass || made->m_pComponentCollectionHolder || made->m_bSkipJSCallback ||
                 made->m_bUrlIsQueued || made->m_bRepeateUtilNum || made->m_bRepeateUntilStop);
    made->SetSpeed(2);
    made->SetError(3);
    made.destroy();
    EXPECT_EQ("8.Stop() 8.RemoveCallback() 8.Close()", happened());
}

TEST_F(LifeCycle, AFreshObjectReadsItsInitialValues) {
    const std::pair<const char*, const char*> rows[] = {
        {"0", "COMPONENT_TYPE_VIDEO playState error nrTracks currentTrackIndex width height loop"},
        {"1", "COMPONENT_TYPE_AUDIO speed"},
        {"2", "COMPONENT_TYPE_SUBTITLE"},
        {"\"\"", "data"},
        {"\"undefined\"", "playPosition cache"},
        {"undefined", "playTime"},
        {"false", "persist fullScreen"},
        {"null", "onPlayStateChange onPlaySpeedChanged onPlayPositionChanged onFullScreenChange onfocus onblur id "
                 "onDRMRightsError onSelectedComponentChange onSelectedComponentChanged onComponentChanged "
                 "onParentalRatingChange"}};
    for (const auto& [value, names] : rows) {
        for (const std::string& name : words(names)) {
            EXPECT_EQ(value, video().read(name)) << name;
            EXPECT_EQ(name != "error", video()->hasProperty(identifier(name))) << name;
        }
    }
    EXPECT_EQ("\"undefined\"", video().slot(playTime));
}

TEST_F(LifeCycle, DestructionStopsAndClosesThePlayerEvenIfItRefusesToStop) {
    forgetLog();
    television().refused = {"Stop"};
    video().destroy();
    EXPECT_EQ("7.Stop() 7.RemoveCallback() 7.Close()", happened());
    expectLogged({"cehtml VideoPlugin delete starting !!!\n\n", "ERROR from destructor, while stopping mmlib\n\n",
                  "Hbbtv_AL_MediaPlayerClose(player)\n", "m_pNpVarProperties released!\n\n",
                  "m_ppsParamValues freed!\n\n", "cehtml VideoPlugin delete Finished !!!\n\n"});
}

TEST_F(LifeCycle, WithoutAPlayerTheObjectWorksAndNothingIsClosed) {
    television().opens = false;
    Video& made = another();
    EXPECT_EQ("-1", made.call("getMediaHandle"));
    EXPECT_EQ("false", made.call("stop"));
    EXPECT_EQ("true", made.call("play"));
    EXPECT_EQ("6", made.read("playState"));
    EXPECT_EQ("0", made.read("width"));
    delivered();
    made.destroy();
    EXPECT_EQ("-1.Stop()", happened());
}

TEST_F(LifeCycle, NoFunctionOfThePageIsCalledOnceDestructionHasBegun) {
    VideoPlugin* plugin = video().plugin();
    handler("onPlayStateChange");
    television().duringStop = [plugin] {
        plugin->MediaCallback(eMEDIA_CALLBACK_PLAYING, 0, nullptr);
        EXPECT_EQ("1", text(plugin->m_pNpVarProperties[playState])) << "the state still follows";
    };
    video().destroy();
    EXPECT_EQ("7.Stop() 7.sync.state(2,1) 7.RemoveCallback() 7.Close()", happened());
    EXPECT_EQ(1, logged(3, "m_bSkipJSCallback is ture,so return\n\n"));
}

TEST_F(LifeCycle, TwoObjectsShareNothingThatScriptCanSee) {
    Video& other = another();
    EXPECT_NE(video().call("getMediaHandle"), other.call("getMediaHandle"));
    EXPECT_TRUE(video().write("loop", 4));
    EXPECT_EQ("0", other.read("loop"));
    EXPECT_NE(video()->getDOMEventClass(), other->getDOMEventClass());
    video().destroy();
    EXPECT_EQ("true", other.call("play")) << "the names still belong to the other";
}

TEST_F(LifeCycle, ThePlatformReachesAnInstanceThroughTheEntryPoints) {
    cbArguments arguments = {video().plugin(), 1, nullptr};
    EXPECT_EQ(0, videoControlHandleNotify(&arguments, 42));
    cbArguments nobody = {nullptr, 1, nullptr};
    EXPECT_EQ(0, videoControlHandleNotify(&nobody, 43));
    EXPECT_EQ(0, videoControlHandleNotify(nullptr, 43));
    EXPECT_EQ(42, video()->m_nMsgHandle);
    EXPECT_EQ(1, video()->unregisterMsgClient());

    videoInstanceCleanerFunction(video().plugin());
    EXPECT_EQ(2, logged(2, "!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!\n"));
    EXPECT_EQ("true", video().call("play")) << "a cleaned instance works on";
    regMediaPlayerResourceCallback();
    EXPECT_EQ(1, logged(2, " qmr--->add Hbbtv_AL_MediaPlayerAddResourceCallback SUCCESS\n\n"));
    television().refused = {"AddResourceCallback"};
    regMediaPlayerResourceCallback();
    EXPECT_EQ(1, logged(2, " qmr--->add Hbbtv_AL_MediaPlayerAddResourceCallback failed\n\n"));

    NPObject* object = nullptr;
    EXPECT_EQ(NPERR_NO_ERROR, video()->PluginGetValue(*video()->getNPP(), NPNVWindowNPObject, &object));
    EXPECT_EQ(browser().window, object);
    NPN_ReleaseObject(object);
    EXPECT_EQ(NPERR_INVALID_PARAM, video()->PluginGetValue(*video()->getNPP(), NPNVisOfflineBool, &object));
}

TEST_F(LifeCycle, LinesGoToEachOutputThatWantsTheirLevel) {
    video().is(MP_PLAYING);
    fake::log() = {3, 5, {}};
    video().call("queue", {"http://tv.example/b.mp4"});
    video().call("queue", {"http://tv.example/c.mp4"}); // a warning
    video().call("seek", {1});                          // an error
    fake::log().consoleFrom = 2;
    video().is(MP_ERROR); // an ordinary line, which has level 3 there
    std::vector<std::string> seen;
    for (const fake::LogLine& line : fake::log().lines) {
        seen.push_back((line.console ? "console " : "file ") + std::to_string(line.level) + " " + line.text);
    }
    EXPECT_EQ((std::vector<std::string>{
                  "console 4 media item is already queued\n", "console 5 seek argument type not allowed\n",
                  "file 5 seek argument type not allowed\n", "console 3 currentState = 1,newState = 6\n"}),
              seen);
}
