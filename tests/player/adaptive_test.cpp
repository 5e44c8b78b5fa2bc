// The real player on streams: HLS, DASH and a transport stream. What they look like, pages show.
#include "media_requests.h"
#include "player_fixture.h"

#include <cstring>

namespace {

class Streams : public PlayerTest, public testing::WithParamInterface<const char*> {
protected:
    static std::string url() { return server->url(GetParam()); }

    static std::vector<Hbbtv_AL_ComponentInfo> audio(const TestPlayer& player) {
        std::vector<Hbbtv_AL_ComponentInfo> found(4);
        found.resize(static_cast<size_t>(
            Hbbtv_AL_MediaPlayerGetComponents(player.handle, AV_COMPONENT_TYPE_AUDIO, found.data(), 4)));
        return found;
    }
    static int select(const TestPlayer& player, int pid) {
        char none[] = "";
        AVComponent component = {AV_COMPONENT_TYPE_AUDIO, none, 0, -1, pid};
        AVAudioComponent record = {&component, none, 0, 0};
        return Hbbtv_AL_MediaPlayerSelectAVAudioComponent(player.handle, &record);
    }
};

} // namespace

TEST_P(Streams, SwitchTheirSoundSeekAndEnd) {
    TestPlayer player;
    player.start(url());
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_NEAR(10'000, Hbbtv_AL_MediaPlayerGetDuration(player.handle), 200);
    const auto tracks = audio(player);
    ASSERT_LE(2U, tracks.size());
    EXPECT_STREQ("eng", tracks[0].language);
    EXPECT_STREQ("deu", tracks[1].language);
    ASSERT_EQ(1, select(player, tracks[1].pid));
    ASSERT_EQ(AV_COMPONENT_TYPE_AUDIO, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    EXPECT_EQ(1, audio(player)[1].active);
    EXPECT_TRUE(player.playsFrom(400));
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerUnselectAVComponentByType(player.handle, AV_COMPONENT_TYPE_AUDIO));
    ASSERT_EQ(AV_COMPONENT_TYPE_AUDIO, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    EXPECT_EQ(0, audio(player)[1].active);
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(player.handle, AV_COMPONENT_TYPE_AUDIO));
    ASSERT_EQ(AV_COMPONENT_TYPE_AUDIO, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerSeek(player.handle, 5'000));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_TRUE(player.playsFrom(5'400));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_FINISHED));
    EXPECT_EQ(Hbbtv_AL_MediaPlayerGetDuration(player.handle), player.position());
}

TEST_P(Streams, AskWithTheTelevisionsNameAndThePagesCookies) {
    mediaRequestsSetUserAgent("HbbTV/1.6.1 (; maker; model; 1.0; ; family; )");
    mediaRequestsSetCookieCallback([](const char*, void*) { return strdup("seen=1; kept=2"); }, nullptr);
    const size_t before = server->requests().size();
    {
        TestPlayer player;
        player.start(url());
        ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    }
    mediaRequestsSetUserAgent(nullptr);
    mediaRequestsSetCookieCallback(nullptr, nullptr);
    const auto requests = server->requests();
    ASSERT_GT(requests.size(), before);
    for (size_t i = before; i < requests.size(); ++i) {
        EXPECT_EQ("HbbTV/1.6.1 (; maker; model; 1.0; ; family; )", requests[i].userAgent) << requests[i].path;
        EXPECT_EQ("seen=1; kept=2", requests[i].cookie) << requests[i].path;
    }
}

using StoppedStreams = PlayerTest;

TEST_F(StoppedStreams, LeaveNothingBehind) {
    stopAtAnyMoment({server->url("/hls/ts/master.m3u8"), server->url("/hls/languages/master.m3u8"),
                     server->url("/dash/template/manifest.mpd"), server->url("/languages.ts")},
                    240, 20);
}

INSTANTIATE_TEST_SUITE_P(, Streams,
                         testing::Values("/hls/languages/master.m3u8", "/dash/template/manifest.mpd", "/languages.ts"));
