// The real player on a real film over HTTP: what no scripted television can show.
#include "media_picture.h"
#include "medialib_components.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <httplib.h>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds PATIENCE(20'000);
constexpr int FRAME_MS = 40;

fs::path film() {
    const char* path = std::getenv("AVCONTROL_MEDIA");
    return path ? path : FILM;
}

/** A web server with the film, and with what a film must not be. */
class Server {
public:
    Server() {
        m_server.new_task_queue = [] { return new httplib::ThreadPool(64); };
        m_server.set_keep_alive_timeout(1);
        m_server.set_mount_point("/", film().parent_path().string());
        m_server.Get("/garbage", [](const httplib::Request&, httplib::Response& response) {
            response.set_content(std::string(100'000, '\x5a'), "video/mp4");
        });
        m_server.Get("/silent", [this](const httplib::Request&, httplib::Response&) {
            while (!m_ending) {
                std::this_thread::sleep_for(milliseconds(50));
            }
        });
        m_port = m_server.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
    }
    ~Server() {
        m_ending = true;
        m_server.stop();
        m_thread.join();
    }
    std::string url(const std::string& path) const { return "http://127.0.0.1:" + std::to_string(m_port) + path; }

private:
    httplib::Server m_server;
    std::atomic<bool> m_ending{false};
    int m_port;
    std::thread m_thread;
};

/** A player as the plug-in uses it, with its reports written down. */
class TestPlayer {
public:
    TestPlayer() {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            living.insert(this);
        }
        Hbbtv_AL_MediaPlayerOpen(&handle);
        Hbbtv_AL_MediaPlayerSetUserAgent(handle);
        Hbbtv_AL_MediaPlayerAddCallback(handle, &TestPlayer::onReport, this);
        Hbbtv_AL_MediaPlayerSetWindow(handle, 0, 0, 320, 180);
    }
    ~TestPlayer() {
        Hbbtv_AL_MediaPlayerStop(handle);
        Hbbtv_AL_MediaPlayerRemoveCallback(handle);
        Hbbtv_AL_MediaPlayerClose(handle);
        // A report that was on its way may still arrive; it then finds no object.
        const std::lock_guard<std::mutex> lock(mutex);
        living.erase(this);
    }
    void start(const std::string& url) {
        Hbbtv_AL_MediaPlayerSetSource(handle, url.c_str());
        ASSERT_EQ(1, Hbbtv_AL_MediaPlayerPlay(handle, 0));
        Hbbtv_AL_MediaPlayerSetSpeed(handle, 1.0);
    }
    /** Waits for the next report of that kind and forgets those before it. @return its code, -1 when none came */
    int waitFor(eMEDIA_CALLBACK_EVENT event, milliseconds patience = PATIENCE) {
        std::unique_lock<std::mutex> lock(mutex);
        const auto find = [&] {
            return std::find_if(m_reports.begin(), m_reports.end(),
                                [&](auto& report) { return report.first == event; });
        };
        changed.wait_for(lock, patience, [&] { return find() != m_reports.end(); });
        const auto found = find();
        if (found == m_reports.end()) {
            return -1;
        }
        const int code = found->second;
        m_reports.erase(m_reports.begin(), found + 1);
        return code;
    }
    int64_t position() const { return Hbbtv_AL_MediaPlayerGetPosition(handle); }
    /** @return the newest frame without its pixels, all 0 and time -1 when there is none */
    MediaPicture picture() const {
        MediaPicture picture = {};
        MediaPicture held = {};
        picture.timeMs = -1;
        if (mediaPictureAcquire(handle, &held)) {
            picture = held;
            mediaPictureRelease(&held);
        }
        return picture;
    }
    void forget() {
        const std::lock_guard<std::mutex> lock(mutex);
        m_reports.clear();
    }

    int handle = -1;

private:
    static void onReport(unsigned int, eMEDIA_CALLBACK_EVENT event, int code, void* data, void* self) {
        std::free(data);
        const std::lock_guard<std::mutex> lock(mutex);
        auto* player = static_cast<TestPlayer*>(self);
        if (living.count(player) > 0) {
            player->m_reports.emplace_back(event, code);
            changed.notify_all();
        }
    }
    static inline std::mutex mutex;
    static inline std::condition_variable changed;
    static inline std::set<TestPlayer*> living;
    std::vector<std::pair<eMEDIA_CALLBACK_EVENT, int>> m_reports;
};

class Player : public testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(fs::exists(film())) << film() << " is missing: run scripts/make-media build/media";
        setenv("AVCONTROL_AUDIO_SINK", "fakesink sync=true", 0); // the same on every machine
        server = std::make_unique<Server>();
        filmUrl = server->url("/" + film().filename().string());
    }
    static void TearDownTestSuite() { server.reset(); }

    static inline std::unique_ptr<Server> server;
    static inline std::string filmUrl;
};

long entries(const char* folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

} // namespace

TEST_F(Player, PlaysWithAPositionThatGrowsAndAPictureThatFitsTheWindow) {
    TestPlayer player;
    EXPECT_EQ(-1, Hbbtv_AL_MediaPlayerGetDuration(player.handle));
    player.start(filmUrl);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_NEAR(30'000, Hbbtv_AL_MediaPlayerGetDuration(player.handle), 100);
    const int64_t first = player.position();
    std::this_thread::sleep_for(milliseconds(1000));
    EXPECT_NEAR(1000, static_cast<double>(player.position() - first), 200);
    EXPECT_NEAR(static_cast<double>(player.position()), static_cast<double>(player.picture().timeMs), 200);
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
    EXPECT_NEAR(20'000, static_cast<double>(player.position()), 150);
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
    std::this_thread::sleep_for(milliseconds(300));
    EXPECT_GT(player.position(), 3 * FRAME_MS);
}

TEST_F(Player, RunsFastAndBackwardsToTheBeginningAndOnFromThere) {
    TestPlayer player;
    player.start(filmUrl);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    Hbbtv_AL_MediaPlayerSetSpeed(player.handle, 4);
    ASSERT_EQ(0, player.waitFor(eMEDIA_CALLBACK_SPEED_CHANGED));
    EXPECT_EQ(4, Hbbtv_AL_MediaPlayerGetSpeed(player.handle));
    const int64_t first = player.position();
    std::this_thread::sleep_for(milliseconds(1000));
    EXPECT_NEAR(4000, static_cast<double>(player.position() - first), 1000);
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
    Hbbtv_AL_MediaPlayerStop(player.handle);
    ASSERT_EQ(1, Hbbtv_AL_MediaPlayerPlay(player.handle, 0));
    EXPECT_EQ(0, player.waitFor(eMEDIA_CALLBACK_PLAYING));
    EXPECT_LT(player.position(), 1000);
}

TEST_F(Player, NamesTheKindOfAnError) {
    const std::pair<std::string, int> cases[] = {{server->url("/missing.mp4"), 5},
                                                 {"http://127.0.0.1:1/refused.mp4", 1},
                                                 {server->url("/garbage"), 4},
                                                 {server->url("/silent"), 1}};
    for (const auto& [url, code] : cases) {
        TestPlayer player;
        player.start(url);
        EXPECT_EQ(code, player.waitFor(eMEDIA_CALLBACK_ERROR)) << url;
        EXPECT_EQ(-1, player.waitFor(eMEDIA_CALLBACK_ERROR, milliseconds(100))) << "a second time for " << url;
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
    const auto round = [](int delayMs) {
        TestPlayer player;
        for (int i = 0; i < 3; ++i) {
            player.start(filmUrl);
            std::this_thread::sleep_for(milliseconds(delayMs));
            if (i == 1) {
                Hbbtv_AL_MediaPlayerSeek(player.handle, 10'000);
            }
            ASSERT_EQ(1, Hbbtv_AL_MediaPlayerStop(player.handle));
        }
        std::this_thread::sleep_for(milliseconds(5)); // for a report that was on its way
        player.forget();
        EXPECT_EQ(-1, player.waitFor(eMEDIA_CALLBACK_PLAYING, milliseconds(20))) << "a report of what was stopped";
        EXPECT_EQ(-1, player.picture().timeMs);
        player.start(filmUrl);
        std::this_thread::sleep_for(milliseconds(delayMs));
    };
    round(500); // what stays for good is there after the first
    std::this_thread::sleep_for(milliseconds(2500));
    const long threads = entries("/proc/self/task");
    const long files = entries("/proc/self/fd");
    for (int delayMs = 0; delayMs < 120; delayMs += 3) {
        round(delayMs);
    }
    for (int i = 0; i < 100 && entries("/proc/self/task") > threads; ++i) {
        std::this_thread::sleep_for(milliseconds(100));
    }
    EXPECT_LE(entries("/proc/self/task"), threads);
    EXPECT_LE(entries("/proc/self/fd"), files);
}
