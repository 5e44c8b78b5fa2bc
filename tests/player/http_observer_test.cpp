// What a late message of the HTTP library means to the media that follows the one it was sent for.
#include "http/HttpObserver.h"
#include "player_fixture.h"

#include <future>
#include <libsoup/soup.h>
#include <optional>

namespace {

/** A web server whose only file comes when it is allowed to. */
class HoldingServer {
public:
    HoldingServer() {
        m_server.Get("/former", [this](const httplib::Request&, httplib::Response& response) {
            requested.set_value();
            allowed.get_future().wait_for(PATIENCE);
            response.set_content("late", "text/plain");
        });
        m_port = m_server.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
    }
    ~HoldingServer() {
        m_server.stop();
        m_thread.join();
    }
    std::string url(const std::string& path) const { return "http://127.0.0.1:" + std::to_string(m_port) + path; }

    std::promise<void> requested;
    std::promise<void> allowed;

private:
    httplib::Server m_server;
    int m_port;
    std::thread m_thread;
};

/** @return the HTTP status of the response, 0 without one */
unsigned get(const std::string& url) {
    SoupSession* session = soup_session_new();
    SoupMessage* message = soup_message_new("GET", url.c_str());
    GBytes* content = soup_session_send_and_read(session, message, nullptr, nullptr);
    const unsigned status = soup_message_get_status(message);
    if (content) {
        g_bytes_unref(content);
    }
    g_object_unref(message);
    g_object_unref(session);
    return status;
}

} // namespace

TEST(HttpObserver, TakesALateResponseForNoneOfTheNextMedia) {
    HoldingServer server;
    const auto thread = media::PlayerThread::start();
    std::optional<media::HttpObserver> observer;
    observer.emplace(*thread, 0, media::nextPlaybackId(), server.url("/former"));
    const void* address = &*observer;
    auto status = std::async(std::launch::async, [&server] { return get(server.url("/former")); });
    ASSERT_EQ(std::future_status::ready, server.requested.get_future().wait_for(PATIENCE));
    EXPECT_NE("", observer->failure()) << "the request is the media's";

    observer.emplace(*thread, 0, media::nextPlaybackId(), server.url("/next"));
    EXPECT_EQ(address, &*observer) << "as memory is reused at any time";
    server.allowed.set_value();
    EXPECT_EQ(200u, status.get());
    EXPECT_EQ("", observer->failure()) << "nothing is known of the next media's connection";
    thread->quit();
}
