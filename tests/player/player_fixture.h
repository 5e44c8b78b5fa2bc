/** A real web server and a real player for tests. */
#ifndef PLAYER_FIXTURE_H
#define PLAYER_FIXTURE_H

#include "media_picture.h"
#include "medialib_components.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <httplib.h>
#include <malloc.h>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

extern "C" size_t __sanitizer_get_current_allocated_bytes();

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr milliseconds PATIENCE(20'000);
constexpr int64_t FRAME_MS = 40;

/** Waits until a condition holds, at most PATIENCE. @return whether it does */
template <class Condition> bool comesToHold(Condition condition) {
    const auto limit = std::chrono::steady_clock::now() + PATIENCE;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        std::this_thread::sleep_for(milliseconds(20));
    }
    return true;
}

/** A web server with the films, and with one that never comes. */
class Server {
public:
    Server() {
        m_server.new_task_queue = [] { return new httplib::ThreadPool(64); };
        m_server.set_keep_alive_timeout(1);
        m_server.set_mount_point("/", MEDIA);
        m_server.Get("/silent", [this](const httplib::Request&, httplib::Response&) {
            while (!m_ending) {
                std::this_thread::sleep_for(milliseconds(50));
            }
        });
        m_server.set_pre_routing_handler([this](const httplib::Request& request, httplib::Response&) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_requests.push_back(
                {request.path, request.get_header_value("User-Agent"), request.get_header_value("Cookie")});
            return httplib::Server::HandlerResponse::Unhandled;
        });
        m_port = m_server.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
    }
    ~Server() {
        m_ending = true;
        m_server.stop();
        m_thread.join();
    }
    /** Also serves the files of a folder. */
    void mount(const fs::path& folder) { m_server.set_mount_point("/", folder.string()); }
    struct Request {
        std::string path;
        std::string userAgent;
        std::string cookie;
    };
    std::vector<Request> requests() {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_requests;
    }
    std::string url(const std::string& path) const { return "http://127.0.0.1:" + std::to_string(m_port) + path; }

private:
    httplib::Server m_server;
    std::mutex m_mutex; // guards m_requests
    std::vector<Request> m_requests;
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
    /** Waits until the position has passed `ms` and the picture is that of the position. */
    bool playsFrom(int64_t ms) const {
        return comesToHold([&] {
            const int64_t now = position();
            return now >= ms && std::abs(now - picture().timeMs) <= 200;
        });
    }
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

/** Tests of players, each suite with a server of the film and of scripts/make-test-media's media. */
class PlayerTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(fs::exists(MEDIA "/film.mp4")) << "run scripts/make-media " MEDIA;
        ASSERT_TRUE(fs::exists(TEST_MEDIA)) << "run scripts/make-test-media " TEST_MEDIA;
        setenv("AVCONTROL_AUDIO_SINK", "fakesink sync=true", 0); // the same on every machine
        server = std::make_unique<Server>();
        server->mount(TEST_MEDIA);
        filmUrl = server->url("/film.mp4");
    }
    static void TearDownTestSuite() { server.reset(); }

    static inline std::unique_ptr<Server> server;
    static inline std::string filmUrl;
};

/** What a process may leave behind. */
struct Traces {
    long threads = entries("/proc/self/task");
    long files = entries("/proc/self/fd");
    size_t bytes = heap();
    static constexpr size_t CACHES = 16'000'000; // of libraries, which fill and stay

    static long entries(const char* folder) {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }
    static size_t heap() {
#if defined(__SANITIZE_ADDRESS__)
        return __sanitizer_get_current_allocated_bytes();
#else
        return mallinfo2().uordblks;
#endif
    }
    void expectNoMore() const {
        EXPECT_TRUE(comesToHold([&] { return entries("/proc/self/task") <= threads; })) << "threads are left";
        EXPECT_TRUE(comesToHold([&] { return entries("/proc/self/fd") <= files; })) << "files are left open";
        EXPECT_LT(heap(), bytes + CACHES);
    }
};

/**
 * Starts and stops each address in turn, later and later after its start.
 * @param started called after each start
 */
inline void stopAtAnyMoment(
    const std::vector<std::string>& urls, int lastMs, int stepMs,
    const std::function<void(const TestPlayer&)>& started = [](const TestPlayer&) {}) {
    const auto round = [&started](const std::string& url, int delayMs) {
        TestPlayer player;
        for (int i = 0; i < 3; ++i) {
            player.start(url);
            started(player);
            std::this_thread::sleep_for(milliseconds(delayMs));
            if (i == 1) {
                Hbbtv_AL_MediaPlayerSeek(player.handle, 10'000);
            } else if (i == 2) {
                Hbbtv_AL_MediaPlayerUnselectAVComponentByType(player.handle, AV_COMPONENT_TYPE_AUDIO);
                Hbbtv_AL_MediaPlayerSetSpeed(player.handle, 2);
            }
            ASSERT_EQ(1, Hbbtv_AL_MediaPlayerStop(player.handle));
        }
        std::this_thread::sleep_for(milliseconds(5)); // for a report that was on its way
        player.forget();
        EXPECT_EQ(-1, player.waitFor(eMEDIA_CALLBACK_PLAYING, milliseconds(20))) << "a report of what was stopped";
        EXPECT_EQ(-1, player.picture().timeMs);
        player.start(url);
        std::this_thread::sleep_for(milliseconds(delayMs));
    };
    for (const std::string& url : urls) {
        round(url, 300); // what stays for good is there after the first
    }
    std::this_thread::sleep_for(milliseconds(2500));
    const Traces before;
    size_t next = 0;
    for (int delayMs = 0; delayMs < lastMs; delayMs += stepMs) {
        round(urls[next++ % urls.size()], delayMs);
    }
    before.expectNoMore();
}

#endif
