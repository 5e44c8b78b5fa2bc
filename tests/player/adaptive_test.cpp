// The real player on streams: HLS, DASH and a transport stream, cut from the film.
#include "media_requests.h"
#include "player_fixture.h"

#include <cstring>
#include <unistd.h>

namespace {

/** The folder with the streams, for as long as the tests run. */
class StreamFolder {
public:
    StreamFolder() : m_path(fs::temp_directory_path() / ("player-test-" + std::to_string(getpid()))) {
        fs::create_directories(m_path);
        make("-map 0:v -map 0:a -map 0:a -metadata:s:a:0 language=eng -metadata:s:a:1 language=deu -f mpegts film.ts");
        const std::string hls = "-map 0:v -map 0:a -map 0:a -f hls -hls_time 4 -hls_playlist_type vod -var_stream_map "
                                "\"v:0,agroup:a a:0,agroup:a,language:eng,default:yes a:1,agroup:a,language:deu\" ";
        make(hls + "-master_pl_name ts.m3u8 -hls_segment_filename 'ts%v_%d.ts' ts%v.m3u8");
        make(hls + "-hls_segment_type fmp4 -hls_fmp4_init_filename 'mp4-%v.mp4' -master_pl_name mp4.m3u8 "
                   "-hls_segment_filename 'mp4-%v_%d.m4s' mp4-%v.m3u8");
        make("-map 0:v -map 0:a -map 0:a -metadata:s:a:0 language=eng -metadata:s:a:1 language=deu -f dash "
             "-seg_duration "
             "4 -adaptation_sets \"id=0,streams=0 id=1,streams=1 id=2,streams=2\" film.mpd");
    }
    ~StreamFolder() { fs::remove_all(m_path); }
    const fs::path& path() const { return m_path; }

private:
    void make(const std::string& arguments) const {
        const std::string command = "cd '" + m_path.string() + "' && ffmpeg -nostdin -loglevel error -y -i '" +
                                    fs::absolute(film()).string() + "' -c copy " + arguments;
        ASSERT_EQ(0, std::system(command.c_str())) << command;
    }
    const fs::path m_path;
};

class Streams : public testing::TestWithParam<const char*> {
protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(fs::exists(film())) << film() << " is missing: run scripts/make-media build/media";
        setenv("AVCONTROL_AUDIO_SINK", "fakesink sync=true", 0); // the same on every machine
        folder = std::make_unique<StreamFolder>();
        server = std::make_unique<Server>();
        server->mount(folder->path());
    }
    static void TearDownTestSuite() {
        server.reset();
        folder.reset();
    }
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
    /** The picture moves on from `ms`, together with the position, even if frames were dropped at first. */
    static void expectPlaysFrom(const TestPlayer& player, int64_t ms) {
        const auto limit = std::chrono::steady_clock::now() + PATIENCE;
        int64_t position = 0;
        int64_t behind = 0;
        do {
            std::this_thread::sleep_for(milliseconds(50));
            position = player.position();
            behind = position - player.picture().timeMs;
        } while ((position < ms + 400 || behind > 200) && std::chrono::steady_clock::now() < limit);
        EXPECT_GE(position, ms + 400);
        EXPECT_LE(behind, 200);
        EXPECT_GE(behind, -200);
    }

    static inline std::unique_ptr<StreamFolder> folder;
    static inline std::unique_ptr<Server> server;
};

} // namespace

TEST_P(Streams, PlaySeekAndEndAsAFilmDoes) {
    TestPlayer player;
    player.start(url());
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_NEAR(30'000, Hbbtv_AL_MediaPlayerGetDuration(player.handle), 200);
    expectPlaysFrom(player, 0);
    for (const int ms : {20'000, 4'000}) {
        ASSERT_EQ(1, Hbbtv_AL_MediaPlayerSeek(player.handle, ms));
        ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING)) << ms;
        expectPlaysFrom(player, ms);
    }
    Hbbtv_AL_MediaPlayerPause(player.handle);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PAUSED));
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerSeek(player.handle, 29'000));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_POSITION_CHANGED));
    EXPECT_EQ(29'000, player.position());
    EXPECT_NEAR(29'000, static_cast<double>(player.picture().timeMs), 2.0 * FRAME_MS);
    Hbbtv_AL_MediaPlayerResume(player.handle);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_FINISHED));
    EXPECT_EQ(Hbbtv_AL_MediaPlayerGetDuration(player.handle), player.position());
    EXPECT_GT(player.picture().timeMs, 29'000);
}

TEST_P(Streams, SwitchTheirSound) {
    TestPlayer player;
    player.start(url());
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    const auto tracks = audio(player);
    ASSERT_EQ(2U, tracks.size());
    EXPECT_STREQ("eng", tracks[0].language);
    EXPECT_STREQ("deu", tracks[1].language);
    const int64_t before = player.position();
    ASSERT_EQ(1, select(player, tracks[1].pid));
    ASSERT_EQ(AV_COMPONENT_TYPE_AUDIO, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    EXPECT_EQ(1, audio(player)[1].active);
    expectPlaysFrom(player, before);
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerUnselectAVComponentByType(player.handle, AV_COMPONENT_TYPE_AUDIO));
    ASSERT_EQ(AV_COMPONENT_TYPE_AUDIO, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    EXPECT_EQ(0, audio(player)[1].active);
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(player.handle, AV_COMPONENT_TYPE_AUDIO));
    ASSERT_EQ(AV_COMPONENT_TYPE_AUDIO, player.waitFor(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED));
    const int64_t after = player.position();
    expectPlaysFrom(player, after);
    Hbbtv_AL_MediaPlayerStop(player.handle);
    player.start(server->url("/" + film().filename().string()));
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_EQ(0, select(player, tracks[0].pid)) << "a component of the former media";
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

class StoppedStreams : public Streams {};

TEST_F(StoppedStreams, LeaveNothingBehind) {
    stopAtAnyMoment(
        {server->url("/ts.m3u8"), server->url("/mp4.m3u8"), server->url("/film.mpd"), server->url("/film.ts")}, 240,
        20);
}

INSTANTIATE_TEST_SUITE_P(, Streams, testing::Values("/ts.m3u8", "/mp4.m3u8", "/film.mpd", "/film.ts"));
