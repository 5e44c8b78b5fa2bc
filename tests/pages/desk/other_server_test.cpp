// Faults of servers that are not this program's: requests go through it.
#include "server/FaultProxy.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <httplib.h>
#include <sys/wait.h>
#include <thread>

using namespace tv;

namespace {

const char* const page = R"(<title></title><script>
var status = [];
function ask(method) {
  var request = new XMLHttpRequest();
  request.open(method, 'data.json', false);
  request.send('x');
  return request.status;
}
var video = document.createElement('object');
video.type = 'video/mp4';
video.data = 'media/short.mp4';
video.onPlayStateChange = function(state) {
  if (state === 1 || state === 6) {
    document.title = 'PASS';
    console.log('seen: ' + [document.cookie, ask('GET'), ask('POST'), state, video.error].join(' '));
  }
};
document.documentElement.appendChild(video);
video.play(1);
</script>)";

class OtherServerTest : public testing::Test {
protected:
    OtherServerTest() {
        m_other.Get("/page.html", [](const httplib::Request&, httplib::Response& response) {
            response.set_header("Set-Cookie", "visit=1");
            response.set_content(page, "text/html");
        });
        const auto data = [](const httplib::Request&, httplib::Response& response) {
            response.set_content("0123456789", "application/json");
        };
        m_other.Get("/data.json", data);
        m_other.Post("/data.json", data);
        m_other.Get("/empty", [](const httplib::Request&, httplib::Response& response) { response.status = 204; });
        m_other.Get("/chunks", [](const httplib::Request& request, httplib::Response& response) {
            std::string asked = request.target + " " + request.get_header_value("Colour");
            std::replace(asked.begin(), asked.end(), '%', '~'); // the client would decode what it finds in headers
            response.set_header("Asked", asked);
            response.set_chunked_content_provider("text/plain", [](size_t offset, httplib::DataSink& sink) {
                sink.write("chunk", 5);
                if (offset >= 10) {
                    sink.done();
                }
                return true;
            });
        });
        m_other.set_mount_point("/media", MEDIA);
        m_otherPort = m_other.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_other.listen_after_bind(); });
        while (!m_other.is_running()) {
            std::this_thread::yield();
        }
        m_port = m_proxy.start();
    }

    ~OtherServerTest() override {
        m_other.stop();
        m_thread.join();
    }

    std::string address() const { return "http://127.0.0.1:" + std::to_string(m_otherPort); }

    void breakThings(const std::string& pattern, const std::string& faults) {
        m_proxy.setFaults({{pattern, *parseServerFault(faults)}});
    }

    /// @return status and body, as a client of the proxy sees them
    std::string get(const std::string& path, const httplib::Headers& headers = {}) {
        httplib::Client client(address());
        client.set_proxy("127.0.0.1", m_port);
        client.set_url_encode(false);
        const httplib::Result answer = client.Get(path, headers);
        m_headers = answer ? answer->headers : httplib::Headers();
        return answer ? std::to_string(answer->status) + " " + answer->body : "no answer";
    }

    std::string header(const std::string& name) const {
        const auto found = m_headers.find(name);
        return found == m_headers.end() ? "" : found->second;
    }

    httplib::Server m_other;
    std::thread m_thread;
    int m_otherPort = 0;
    FaultProxy m_proxy;
    int m_port = 0;
    httplib::Headers m_headers; // of the last answer
};

TEST_F(OtherServerTest, IsPassedOnAsItIs) {
    EXPECT_EQ("200 0123456789", get("/data.json"));
    EXPECT_EQ("application/json", header("Content-Type"));
    EXPECT_EQ("206 234", get("/data.json", {{"Range", "bytes=2-4"}}));
    EXPECT_EQ("bytes 2-4/10", header("Content-Range"));
    EXPECT_EQ("200 chunkchunkchunk", get("/chunks?a=%41b&fault=soup", {{"Colour", "red"}}));
    EXPECT_EQ("/chunks?a=~41b&fault=soup red", header("Asked"));
    EXPECT_EQ("204 ", get("/empty"));
    EXPECT_EQ("404 ", get("/missing"));
    m_otherPort = 1;
    EXPECT_EQ("no answer", get("/data.json")) << "nobody listens there";
}

TEST_F(OtherServerTest, GoesWrongByPathOrByAddress) {
    for (const std::string& pattern : {std::string("/data.json"), std::string("*.json"), address() + "/data*"}) {
        breakThings(pattern, "status:410");
        EXPECT_EQ("410", get("/data.json").substr(0, 3)) << pattern;
        EXPECT_EQ("204 ", get("/empty"));
    }
    breakThings("*", "cut:4");
    EXPECT_EQ("no answer", get("/data.json"));
    EXPECT_EQ("no answer", get("/chunks"));
    EXPECT_EQ("no answer", get("/data.json", {{"Range", "bytes=4-"}})) << "nor what comes after";
    EXPECT_EQ("206 123", get("/data.json", {{"Range", "bytes=1-3"}}));
    breakThings("*", "norange,type:a/b,throttle:1000");
    EXPECT_EQ("200 0123456789", get("/data.json", {{"Range", "bytes=2-4"}}));
    EXPECT_EQ("a/b none", header("Content-Type") + " " + header("Accept-Ranges"));
    breakThings("*", "redirect");
    EXPECT_EQ("302", get("/chunks?a=b").substr(0, 3));
    EXPECT_EQ(address() + "/chunks?a=b&fault=", header("Location"));
    EXPECT_EQ("200 chunkchunkchunk", get("/chunks?a=b&fault="));
    EXPECT_EQ("/chunks?a=b", header("Asked"));
}

TEST_F(OtherServerTest, GoesWrongForPageAndFilm) {
    const auto seen = [this](const std::string& options) {
        const std::string command =
            TV_BROWSER " --headless --verdict --exit-after 30 " + options + " " + address() + "/page.html 2>&1";
        std::FILE* output = popen(command.c_str(), "r");
        std::string text(100'000, '\0');
        text.resize(std::fread(text.data(), 1, text.size(), output));
        EXPECT_EQ(0, pclose(output)) << text;
        const size_t begin = text.find("seen: ");
        return begin == std::string::npos ? text : text.substr(begin, text.find('\n', begin) - begin);
    };
    EXPECT_EQ("seen: visit=1 200 200 1 ", seen(""));
    EXPECT_EQ("seen: visit=1 503 200 6 5", seen("--fault '*.mp4=status:404' --fault '*.json=status:503'"));
    EXPECT_EQ("seen: visit=1 200 200 1 ", seen("--fault '*.mp4=redirect'"));
}

} // namespace
