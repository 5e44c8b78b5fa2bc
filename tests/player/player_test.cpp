// The real player on a real film over HTTP: what no scripted television can show.
#include "player_fixture.h"

#include "media_trace.h"

using Player = PlayerTest;

TEST_F(Player, PlaysWithAPositionThatGrowsAndAPictureThatFitsTheWindow) {
    TestPlayer player;
    EXPECT_EQ(-1, Hbbtv_AL_MediaPlayerGetDuration(player.handle));
    player.start(filmUrl);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_NEAR(30'000, Hbbtv_AL_MediaPlayerGetDuration(player.handle), 100);
    EXPECT_TRUE(player.playsFrom(1'000));
    EXPECT_EQ(320, player.picture().width);
    EXPECT_EQ(180, player.picture().height);
    Hbbtv_AL_ComponentInfo component = {};
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerGetComponents(player.handle, AV_COMPONENT_TYPE_VIDEO, &component, 1));
    EXPECT_STREQ("H264", component.encoding);
    EXPECT_EQ(1, component.active);
}

TEST_F(Player, SeeksExactlyAlsoBeforeTheMediaIsThere) {
    TestPlayer player;
    player.start(filmUrl);
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerSeek(player.handle, 20'000));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_POSITION_CHANGED));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_GE(player.position(), 20'000 - FRAME_MS);
    EXPECT_LT(player.position(), 22'000);
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerSeek(player.handle, 10'000));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING)) << "a page waits for it after a seek";
    Hbbtv_AL_MediaPlayerPause(player.handle);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PAUSED));
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerSeek(player.handle, 5'000));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_POSITION_CHANGED));
    EXPECT_EQ(5'000, player.position());
    EXPECT_EQ(5'000, player.picture().timeMs);
    EXPECT_EQ(0, Hbbtv_AL_MediaPlayerSeek(player.handle, 31'000)) << "beyond the end";
}

TEST_F(Player, HoldsTheFirstPictureAndGoesOnFromIt) {
    TestPlayer player;
    Hbbtv_AL_MediaPlayerSetSource(player.handle, filmUrl.c_str());
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerPause(player.handle));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PAUSED));
    std::this_thread::sleep_for(milliseconds(200));
    EXPECT_EQ(0, player.position());
    EXPECT_EQ(0, player.picture().timeMs);
    EXPECT_EQ(0, Hbbtv_AL_MediaPlayerGetSpeed(player.handle));
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerResume(player.handle));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_TRUE(player.playsFrom(3 * FRAME_MS));
}

TEST_F(Player, RunsFastAndBackwardsToTheBeginningAndOnFromThere) {
    TestPlayer player;
    player.start(filmUrl);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    Hbbtv_AL_MediaPlayerSetSpeed(player.handle, 4);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_SPEED_CHANGED));
    EXPECT_EQ(4, Hbbtv_AL_MediaPlayerGetSpeed(player.handle));
    const auto start = std::chrono::steady_clock::now();
    const int64_t first = player.position();
    EXPECT_TRUE(comesToHold([&] { return player.position() > first + 4'000; }));
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    const auto speed = static_cast<double>(player.position() - first) / elapsed.count();
    EXPECT_NEAR(4, speed, 1.5);
    Hbbtv_AL_MediaPlayerSetSpeed(player.handle, -8);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_SPEED_CHANGED));
    EXPECT_EQ(-8, Hbbtv_AL_MediaPlayerGetSpeed(player.handle));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_SPEED_CHANGED));
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerGetSpeed(player.handle));
    EXPECT_LT(player.position(), 1000);
}

TEST_F(Player, EndsOnceAndStartsAgain) {
    TestPlayer player;
    player.start(filmUrl);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    Hbbtv_AL_MediaPlayerSeek(player.handle, 29'500);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_FINISHED));
    EXPECT_EQ(Hbbtv_AL_MediaPlayerGetDuration(player.handle), player.position());
    EXPECT_EQ(-1, player.waitFor(eMEDIA_CALLBACK_FINISHED, milliseconds(300)));
    EXPECT_EQ(30'000 - FRAME_MS, player.picture().timeMs);
    Hbbtv_AL_MediaPlayerStop(player.handle);
    EXPECT_EQ(30'000 - FRAME_MS, player.picture().timeMs) << "the last picture stays";
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerPlay(player.handle, 0));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_LT(player.position(), 1000);
    Hbbtv_AL_MediaPlayerSetSpeed(player.handle, 16);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_FINISHED));
    Hbbtv_AL_MediaPlayerStop(player.handle);
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerPlay(player.handle, 0));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_SPEED_CHANGED)) << "a loop goes on at normal speed";
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerGetSpeed(player.handle));
    Hbbtv_AL_MediaPlayerStop(player.handle);
    EXPECT_EQ(-1, player.picture().timeMs);
}

TEST_F(Player, NamesTheKindAndTheCauseOfAnError) {
    const struct {
        std::string url, report;
    } cases[] = {
        {server->url("/missing.mp4"), "ERROR 5 (HTTP 404)"},
        {"http://127.0.0.1:1/refused.mp4", "ERROR 1 (the connection is refused: no server answers at 127.0.0.1:1)"},
        {"http://host.invalid/film.mp4", "ERROR 1 (no address is known for the host of host.invalid:80"},
        {"https" + filmUrl.substr(4), "ERROR 1 (no secure connection to 127.0.0.1:"},
        {server->url("/garbage"), "ERROR 4 ("},
        {server->url("/silent"), "ERROR 1 (no data came for 10 seconds)"}};
    std::string report;
    const auto keep = [](const MediaTraceEntry* entry, void* last) {
        if (entry->kind == MEDIA_TRACE_REPORT) {
            *static_cast<std::string*>(last) = entry->text;
        }
    };
    for (const auto& row : cases) {
        TestPlayer player;
        mediaTraceSetCallback(keep, &report);
        player.start(row.url);
        EXPECT_NE(-1, player.waitFor(eMEDIA_CALLBACK_ERROR)) << row.url;
        mediaTraceSetCallback(nullptr, nullptr);
        EXPECT_EQ(0u, report.find(row.report)) << row.url << ": " << report;
        EXPECT_EQ(-1, player.waitFor(eMEDIA_CALLBACK_ERROR, milliseconds(100))) << "a second time for " << row.url;
    }
}

TEST_F(Player, PlaysTwoFilmsAtOnce) {
    TestPlayer one;
    TestPlayer two;
    one.start(filmUrl);
    two.start(filmUrl);
    Hbbtv_AL_MediaPlayerSeek(two.handle, 15'000);
    EXPECT_EQ(0, one.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_EQ(0, two.waitFor(eMEDIA_CALLBACK_PLAYING));
    MediaPictureWindow windows[3];
    EXPECT_EQ(2, mediaPictureWindows(windows, 3));
    EXPECT_LT(one.picture().timeMs, 5'000);
    EXPECT_GE(two.picture().timeMs, 15'000);
}

TEST_F(Player, SurvivesStopAndCloseAtAnyMomentAndLeavesNothingBehind) {
    stopAtAnyMoment({filmUrl}, 120, 6);
}
