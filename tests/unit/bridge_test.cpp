#include "av_control_test.h"

#include <atomic>
#include <thread>

using Bridge = AvControl;

TEST_F(Bridge, ThePageHearsOfCallsAndReportsInALaterTurnAndEachStateIsAppliedAgain) {
    handler("onPlayStateChange");
    EXPECT_EQ("true", video().call("play"));
    EXPECT_EQ(1u, browser().queued());
    video().is(MP_BUFFERING);
    television().report(7, eMEDIA_CALLBACK_PLAYING, 0, malloc(8));
    EXPECT_EQ("7.Play(0) 7.SetSpeed(1.0)", happened());
    EXPECT_EQ("4", video().read("playState"));
    EXPECT_EQ("onPlayStateChange(3) 7.sync.state(2,3) onPlayStateChange(1) 7.sync.state(2,1)", delivered());
    EXPECT_EQ("1", video().read("playState"));
    expectLogged({"AVControlPushEvent\n\n", "event = onPlayStateChange\n\n", "state = 3\n\n",
                  "!!!!!!!!!!!!!!!!!!!MediaCallback!!!!!!!!!!!!!!!!!!!!!!!!!!\n\n",
                  "!!!!!!!!!!!!!!!!!!!MediaCallback end!!!!!!!!!!!!!!!!!!!!!!!!!!\n\n",
                  "MediaCallback nEvent = 2, eEventCode:0\n\n"});
    EXPECT_EQ(2, logged(2, "PLAY_STATE_CHANGED GetIsPropertySetFromListener not ok\n\n"));
}

TEST_F(Bridge, AListenerTakesThePlaceOfTheHandlerAndItsEventKeepsEarlierValues) {
    handler("onPlayStateChange");
    handler("onPlayPositionChanged");
    listener("PlayStateChange");
    listener("PlayPositionChanged");
    video().call("seek", {1234.0});
    video().call("play");
    video().call("seek", {99999.0});
    EXPECT_EQ("7.Seek(1234) 7.Play(0) 7.SetSpeed(1.0) "
              "listener(event{0,0,0,3}) 7.sync.state(2,3) listener(event{1234,0,0,3})",
              delivered());
    video().call("removeEventListener", {"PlayStateChange", browser().element});
    video().call("stop");
    EXPECT_EQ("7.Stop() onPlayStateChange(0) 7.sync.state(2,0)", delivered());
    expectLogged({"PLAY_STATE_CHANGED GetIsPropertySetFromListener ok\n\n",
                  "PLAY_POSITION_CHANGED GetIsPropertySetFromListener ok\n\n", "pos = 1234\n\n"});
}

TEST_F(Bridge, WhatIsOnItsWayToAnObjectThatHasGoneIsDropped) {
    handler("onPlayStateChange");
    video().call("play");
    video().call("seek", {99999.0});
    television().report(7, eMEDIA_CALLBACK_PLAYING, 0, malloc(8));
    video().destroy();
    happened();
    EXPECT_EQ("", delivered());
    EXPECT_EQ(2, logged(2, " Don't find popData->objectHandle in pluginHandlelist\n"));
}

TEST_F(Bridge, TheRegistryFollowsTheInstances) {
    VideoPlugin* const plugins[] = {video().plugin(), another().plugin(), another().plugin()};
    const Hbbtv_AL_MediaPlayerCallback callback = television().players[7].callback;
    const auto queues = [&](VideoPlugin* plugin) {
        callback(7, eMEDIA_CALLBACK_STOPPED, 0, malloc(8), plugin); // the leak checker sees to the blocks
        const size_t queued = browser().queued();
        browser().deliver();
        return queued == 1;
    };
    std::string found;
    for (const size_t goes : {1u, 0u, 2u}) {
        m_videos[goes]->destroy();
        for (VideoPlugin* plugin : plugins) {
            found += queues(plugin) ? "+" : "-";
        }
    }
    EXPECT_EQ("+-+--+---", found);
    EXPECT_FALSE(queues(nullptr));
}

TEST_F(Bridge, AnInstanceWithoutMemoryForItsRegistrationHearsNothing) {
    video().destroy();
    fake::failAllocation(1);
    Video& unknown = another();
    fake::failAllocation(0);
    unknown.report(eMEDIA_CALLBACK_PLAYING);
    unknown.call("play");
    EXPECT_EQ(0u, browser().queued());
    EXPECT_EQ("3", unknown.read("playState"));
    unknown.destroy();
    EXPECT_EQ(1, logged(5, "pluginHandleListHead is NULL!!\n"));
}

TEST_F(Bridge, AReportBeforeInitialisationIsDroppedWithALine) {
    Video& other = another(Video::Constructed);
    happened();
    other.report(eMEDIA_CALLBACK_PLAYING);
    EXPECT_EQ(1u, errorLines().size());
    EXPECT_EQ("", happened());
    other.initialize();
    EXPECT_EQ("0", other.read("playState"));
}

TEST_F(Bridge, AReportThatCannotBeCarriedFreesItsBlock) {
    void* block = malloc(8);
    fake::failAllocation(1);
    television().players[7].callback(7, eMEDIA_CALLBACK_PLAYING, 0, block, video().plugin());
    EXPECT_EQ(1, fake::countAllocations()) << "the record was asked for";
    EXPECT_EQ(0u, browser().queued());
    EXPECT_EQ(1u, errorLines().size());
}

TEST_F(Bridge, AnObjectMayGoWhileItsPlayerReports) {
    const Hbbtv_AL_MediaPlayerCallback callback = television().players[7].callback;
    std::atomic<VideoPlugin*> target(video().plugin());
    std::atomic<bool> done(false);
    fake::log().fileFrom = 100;
    std::thread player([&] {
        for (int reports = 0; !done && reports < 20000; ++reports) {
            callback(7, eMEDIA_CALLBACK_BUFFERING, 0, malloc(4), target);
        }
    });
    for (int i = 0; i < 300; ++i) {
        target = another().plugin();
        m_videos.pop_back();
    }
    done = true;
    player.join();
}
