#include "av_control_test.h"

using QueueAndLoop = AvControl;

const char* const first = "http://tv.example/first.mp4";
const std::string starts = "7.SetSource(\"http://tv.example/first.mp4\") 7.Play(0) 7.SetSpeed(1.0)";
const std::string hears5 = "onPlayStateChange(5) 7.sync.state(2,5)";
const std::string hears0and3 = " onPlayStateChange(0) 7.sync.state(2,0) onPlayStateChange(3) 7.sync.state(2,3)";

TEST_F(QueueAndLoop, TheQueuedMediaFollowsAsFiveZeroThree) {
    handler("onPlayStateChange");
    video().is(MP_PLAYING);
    EXPECT_EQ("true", video().call("queue", {first}));
    EXPECT_EQ("false", video().call("queue", {"http://tv.example/second.mp4"}));
    EXPECT_EQ("false", video().call("queue", {""}));
    EXPECT_EQ(2, logged(3, "media item is already queued\n"));
    EXPECT_EQ("", delivered());
    EXPECT_EQ(hears5 + " 7.Stop() 7.Stop() " + starts + hears0and3, reported(eMEDIA_CALLBACK_FINISHED));
    EXPECT_EQ("3", video().read("playState"));
    EXPECT_EQ("\"http://tv.example/first.mp4\"", video().read("data"));
    EXPECT_FALSE(video()->m_bUrlIsQueued);
    EXPECT_STREQ(first, video()->m_acQueuedUrlBuffer);
    EXPECT_EQ(1, logged(2, "FROM : callback ### URL IS QUEUED !!!\n\n"));
    EXPECT_EQ(0, logged(2, "!!!MediaCallback called end!!!\n"));
}

TEST_F(QueueAndLoop, QueueingWhileNothingRunsStartsAtOnce) {
    handler("onPlayStateChange");
    EXPECT_EQ("true", video().call("queue", {first}));
    EXPECT_EQ(starts + " onPlayStateChange(3) 7.sync.state(2,3)", delivered());
    video().is(MP_FINISHED);
    EXPECT_EQ("true", video().call("queue", {first}));
    EXPECT_EQ("7.Stop() " + starts + hears0and3, delivered());
    EXPECT_FALSE(video()->m_bUrlIsQueued);
}

TEST_F(QueueAndLoop, AnItemWaitsInEveryRunningState) {
    for (int state = MP_PLAYING; state <= MP_BUFFERING; ++state) {
        video().is(state);
        EXPECT_EQ("true", video().call("queue", {first}));
        EXPECT_TRUE(video()->m_bUrlIsQueued);
        EXPECT_EQ("true", video().call("queue", {nullptr}));
        EXPECT_FALSE(video()->m_bUrlIsQueued);
        EXPECT_STREQ("", video()->m_acQueuedUrlBuffer);
        EXPECT_EQ("true", video().call("queue", {""}));
        EXPECT_FALSE(video()->m_bUrlIsQueued);
    }
    video().is(MP_ERROR);
    EXPECT_EQ("true", video().call("queue", {first}));
    EXPECT_FALSE(video()->m_bUrlIsQueued);
    EXPECT_EQ("true", video().call("queue"));
    EXPECT_EQ("", delivered());
}

TEST_F(QueueAndLoop, AHandlerOfTheEndMayStillDropTheItem) {
    for (const char* method : {"stop", "queue"}) {
        handler("onPlayStateChange", [&, method] { video().call(method); });
        video().is(MP_PLAYING);
        video().call("queue", {first});
        EXPECT_EQ(std::string::npos, reported(eMEDIA_CALLBACK_FINISHED).find("7.Play")) << method;
        EXPECT_EQ("\"\"", video().read("data"));
        EXPECT_FALSE(video()->m_bUrlIsQueued);
    }
}

TEST_F(QueueAndLoop, AnAddressTooLongToWaitIsRefusedWhole) {
    const std::string longest = "http://" + std::string(1016, 'q');
    for (const int state : {MP_STOPPED, MP_PLAYING, MP_ERROR}) {
        video().is(state);
        EXPECT_EQ(state == MP_ERROR ? "true" : "false", video().call("queue", {longest + "r"}));
        EXPECT_FALSE(video()->m_bUrlIsQueued);
        EXPECT_EQ("", delivered());
    }
    EXPECT_EQ(2, logged(5, "queue refused: 1024 bytes, at most 1023 are taken\n"));
    video().is(MP_PLAYING);
    EXPECT_EQ("true", video().call("queue", {longest}));
    EXPECT_EQ(longest, video()->m_acQueuedUrlBuffer);
    EXPECT_NE(std::string::npos, reported(eMEDIA_CALLBACK_FINISHED).find("7.SetSource(\"" + longest + "\") 7.Play(0)"));
}

TEST_F(QueueAndLoop, AnAddressThatProvesTooLongDoesNotStartTheFormerMedia) {
    browser().location->properties["href"] = "http://tv.example/" + std::string(900, 'f') + "/page.html";
    for (const size_t length : {105u, 300u}) { // too long for the player, too long to be kept
        const std::string url(length, 'q');
        video().is(MP_PLAYING);
        EXPECT_EQ("true", video().call("queue", {url}));
        happened();
        EXPECT_EQ(std::string::npos, reported(eMEDIA_CALLBACK_FINISHED).find("7.Play"));
        EXPECT_EQ("0", video().read("playState"));
        EXPECT_FALSE(video()->m_bUrlIsQueued);
        EXPECT_EQ("false", video().call("queue", {url}));
        EXPECT_EQ("", delivered());
    }
}

TEST_F(QueueAndLoop, ACountRepeatsSilentlyAndTheQueueWaitsForTheLastEnd) {
    handler("onPlayStateChange");
    video().write("loop", 3);
    video().is(MP_PLAYING);
    video().call("queue", {first});
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ("7.Stop() 7.Play(0)", reported(eMEDIA_CALLBACK_FINISHED));
        EXPECT_EQ("5", video().read("playState"));
        EXPECT_EQ("onPlayStateChange(1) 7.sync.state(2,1)", reported(eMEDIA_CALLBACK_PLAYING));
    }
    EXPECT_EQ(1, logged(2, "m_bRepeateUtilNum = 1,m_nRepeateNum=2,m_bRepeateUntilStop = 0\n\n"));
    EXPECT_EQ(hears5 + " 7.Stop() 7.Stop() " + starts + hears0and3, reported(eMEDIA_CALLBACK_FINISHED));
    EXPECT_FALSE(video()->m_bRepeateUtilNum);
    EXPECT_EQ(0, video()->m_nRepeateNum);
}

TEST_F(QueueAndLoop, CountsBelowTwoEndAtTheFirstEnd) {
    handler("onPlayStateChange");
    for (const double count : {1.0, 0.0, -2147483648.0, -5.0}) {
        video().write("loop", count);
        video().is(MP_PLAYING);
        EXPECT_EQ("7.Stop() " + hears5, reported(eMEDIA_CALLBACK_FINISHED)) << count;
        EXPECT_FALSE(video()->m_bRepeateUtilNum);
    }
}

TEST_F(QueueAndLoop, StopEndsAnInfiniteLoopAndDropsTheItem) {
    video().write("loop", "infinite");
    for (int i = 0; i < 4; ++i) {
        video().is(MP_PLAYING);
        EXPECT_EQ("7.Stop() 7.Play(0)", reported(eMEDIA_CALLBACK_FINISHED));
    }
    video().is(MP_PLAYING);
    video().call("queue", {first});
    video().call("stop");
    video().call("play");
    delivered();
    EXPECT_EQ("7.Stop()", reported(eMEDIA_CALLBACK_FINISHED));
    EXPECT_EQ("5", video().read("playState"));
    EXPECT_EQ(5, logged(2, "!!!MediaCallback called end!!!\n"));
}
