// The real player on a real film over HTTP: what no scripted television can show.
#include "player_fixture.h"

#include "media_trace.h"

using Player = PlayerTest;

TEST_F(Player, HoldsTheFirstPictureInTheWindowsSizeAndGoesOnFromIt) {
    TestPlayer player;
    Hbbtv_AL_MediaPlayerSetSource(player.handle, filmUrl.c_str());
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerPause(player.handle));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PAUSED));
    std::this_thread::sleep_for(milliseconds(200));
    EXPECT_EQ(0, player.position());
    EXPECT_EQ(0, player.picture().timeMs);
    EXPECT_EQ(320, player.picture().width);
    EXPECT_EQ(180, player.picture().height);
    EXPECT_EQ(0, Hbbtv_AL_MediaPlayerGetSpeed(player.handle));
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerResume(player.handle));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_TRUE(player.playsFrom(3 * FRAME_MS));
}

TEST_F(Player, LoopsFromTheLastPictureAtNormalSpeed) {
    TestPlayer player;
    player.start(filmUrl);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    Hbbtv_AL_MediaPlayerSeek(player.handle, 29'500);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_FINISHED));
    EXPECT_EQ(Hbbtv_AL_MediaPlayerGetDuration(player.handle), player.position());
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
        std::string url;
        int code;
        std::string cause; // begins so
    } cases[] = {{server->url("/missing.mp4"), 5, "HTTP 404"},
                 {"http://127.0.0.1:1/refused.mp4", 1, "the connection is refused: no server answers at 127.0.0.1:1"},
                 {"http://host.invalid/film.mp4", 1, "no address is known for the host of host.invalid:80"},
                 {"https" + filmUrl.substr(4), 1, "no secure connection to 127.0.0.1:"},
                 {server->url("/text.mp4"), 4, ""},
                 {server->url("/silent"), 1, "no data came for 10 seconds"}};
    struct Report {
        eMEDIA_CALLBACK_EVENT event;
        int code;
        std::string cause;
    } report{};
    const auto keep = [](const MediaTraceEntry* entry, void* last) {
        if (entry->kind == MEDIA_TRACE_REPORT) {
            *static_cast<Report*>(last) = {entry->report.event, entry->report.code, entry->report.cause};
        }
    };
    for (const auto& row : cases) {
        TestPlayer player;
        mediaTraceSetCallback(keep, &report);
        player.start(row.url);
        EXPECT_NE(-1, player.waitFor(eMEDIA_CALLBACK_ERROR)) << row.url;
        mediaTraceSetCallback(nullptr, nullptr);
        EXPECT_EQ(eMEDIA_CALLBACK_ERROR, report.event) << row.url;
        EXPECT_EQ(row.code, report.code) << row.url;
        EXPECT_EQ(0u, report.cause.find(row.cause)) << row.url << ": " << report.cause;
        EXPECT_FALSE(report.cause.empty()) << row.url;
        EXPECT_EQ(-1, player.waitFor(eMEDIA_CALLBACK_ERROR, milliseconds(100))) << "a second time for " << row.url;
    }
}

TEST_F(Player, PlaysTwoFilmsAtOnceOneFromAPositionSoughtBeforeItWasThere) {
    TestPlayer one;
    TestPlayer two;
    one.start(filmUrl);
    two.start(filmUrl);
    EXPECT_EQ(1, Hbbtv_AL_MediaPlayerSeek(two.handle, 15'000));
    EXPECT_EQ(0, two.waitFor(eMEDIA_CALLBACK_POSITION_CHANGED));
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
