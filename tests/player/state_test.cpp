// What an observer reads of a real player, from before its media to after it.
#include "media_state.h"
#include "player_fixture.h"

namespace {

MediaState stateOf(const TestPlayer& player) {
    MediaState state = {};
    EXPECT_EQ(1, mediaStateRead(player.handle, &state));
    return state;
}

} // namespace

using Observer = PlayerTest;

TEST_F(Observer, ReadsWhatTheAdaptationLayerAnswers) {
    TestPlayer player;
    EXPECT_EQ(MEDIA_STATE_STOPPED, stateOf(player).phase);
    EXPECT_EQ(-1, stateOf(player).positionMs);
    EXPECT_EQ(-1, stateOf(player).durationMs);
    EXPECT_EQ(100, stateOf(player).bufferPercent);
    EXPECT_EQ(0, mediaStateTracks(player.handle, nullptr, 0));

    player.start(server->url("/missing.mp4"));
    EXPECT_NE(-1, player.waitFor(eMEDIA_CALLBACK_ERROR));
    EXPECT_EQ(MEDIA_STATE_FAILED, stateOf(player).phase);
    Hbbtv_AL_MediaPlayerStop(player.handle);

    player.start(filmUrl);
    EXPECT_EQ(MEDIA_STATE_STARTED, stateOf(player).phase);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_EQ(1, stateOf(player).speed);
    EXPECT_EQ(100, stateOf(player).bufferPercent);
    EXPECT_EQ(Hbbtv_AL_MediaPlayerGetDuration(player.handle), stateOf(player).durationMs);
    EXPECT_TRUE(comesToHold([&] { return stateOf(player).positionMs > FRAME_MS; }));
    Hbbtv_AL_MediaPlayerPause(player.handle);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PAUSED));
    EXPECT_EQ(0, stateOf(player).speed);
    EXPECT_EQ(player.position(), stateOf(player).positionMs);
    Hbbtv_AL_MediaPlayerResume(player.handle);
    Hbbtv_AL_MediaPlayerSeek(player.handle, 29'900);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_FINISHED));
    EXPECT_EQ(MEDIA_STATE_FINISHED, stateOf(player).phase);
    EXPECT_EQ(30'000, stateOf(player).positionMs);

    MediaState untouched = {MEDIA_STATE_FAILED, 5, 6, 7, 8};
    EXPECT_EQ(0, mediaStateRead(-1, &untouched));
    EXPECT_EQ(8, untouched.bufferPercent);
}

TEST_F(Observer, ListsTheTracksOfAllTypes) {
    TestPlayer player;
    player.start(server->url("/languages.mp4"));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    MediaStateTrack tracks[4] = {};
    ASSERT_EQ(4, mediaStateTracks(player.handle, tracks, 2)) << "the count does not depend on the room";
    EXPECT_STREQ("", tracks[2].language) << "beyond the room";
    mediaStateTracks(player.handle, tracks, 4);
    EXPECT_EQ(AV_COMPONENT_TYPE_VIDEO, tracks[0].type);
    EXPECT_STREQ("H264", tracks[0].encoding);
    for (int i = 1; i < 4; ++i) {
        EXPECT_EQ(AV_COMPONENT_TYPE_AUDIO, tracks[i].type);
        EXPECT_EQ(i == 1 ? 1 : 0, tracks[i].active) << i;
        EXPECT_STREQ(i == 2 ? "deu" : "eng", tracks[i].language) << i;
    }
    EXPECT_EQ(0, mediaStateTracks(-1, tracks, 4));
}
