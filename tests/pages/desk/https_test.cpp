// Pages of a real server: https with a certificate of its own, redirects, content types, cookies, media.
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <httplib.h>
#include <mutex>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

/** A folder with a key, and with a certificate for 127.0.0.1 that it has signed itself. */
struct CertificateFolder {
    CertificateFolder() {
        std::string pattern = (fs::temp_directory_path() / "https-XXXXXX").string();
        path = mkdtemp(pattern.data());
        const std::string command = "openssl req -x509 -newkey rsa:2048 -noenc -subj /CN=127.0.0.1 -addext "
                                    "subjectAltName=IP:127.0.0.1 -keyout " +
                                    key() + " -out " + certificate() + " 2>/dev/null";
        EXPECT_EQ(0, std::system(command.c_str())) << command;
    }
    ~CertificateFolder() { fs::remove_all(path); }
    std::string key() const { return path / "key.pem"; }
    std::string certificate() const { return path / "certificate.pem"; }

    fs::path path;
};

const char* const page = R"(<?xml version="1.0" encoding="utf-8"?>
<html xmlns="http://www.w3.org/1999/xhtml"><head><title></title></head><body>
<script type="text/javascript" src="../verdict.js"></script></body></html>)";

const char* const verdict = R"(
var ok = location.pathname === '/application/page' && document.createElement('div').nodeName === 'div' &&
         document.cookie === 'visit=1';
var video = document.createElement('object');
video.setAttribute('type', 'video/mp4');
video.setAttribute('data', 'media/short.mp4');
video.onPlayStateChange = function(state) {
  if (state === 1 || state === 6) {
    document.title = ok && state === 1 ? 'PASS' : 'FAIL: ' + location.pathname + ' ' + document.cookie + ' ' + state;
  }
};
document.body.appendChild(video);
video.play(1);)";

class HttpsTest : public testing::Test {
protected:
    HttpsTest() {
        m_server.Get("/start", [](const httplib::Request&, httplib::Response& response) {
            response.set_header("Set-Cookie", "visit=1; Path=/");
            response.set_redirect("application/page");
        });
        m_server.Get("/application/page", [this](const httplib::Request& request, httplib::Response& response) {
            m_pageHeaders = request.headers;
            response.set_content(page, "application/vnd.hbbtv.xhtml+xml; charset=utf-8");
        });
        m_server.Get("/verdict.js", [](const httplib::Request&, httplib::Response& response) {
            response.set_content(verdict, "application/javascript");
        });
        m_server.set_mount_point("/application/media", MEDIA);
        m_server.set_file_request_handler([this](const httplib::Request& request, httplib::Response&) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_filmHeaders = request.headers;
        });
        m_port = m_server.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
        while (!m_server.is_running()) {
            std::this_thread::yield();
        }
    }

    ~HttpsTest() override {
        m_server.stop();
        m_thread.join();
    }

    /// @return the browser's exit code
    int open(const std::string& options) const {
        const std::string command = TV_BROWSER " --headless --verdict --exit-after 30 " + options +
                                    " https://127.0.0.1:" + std::to_string(m_port) + "/start";
        return WEXITSTATUS(std::system(command.c_str()));
    }

    std::string trust() const { return "--trust " + m_folder.certificate(); }

    const CertificateFolder m_folder;
    httplib::SSLServer m_server{m_folder.certificate().c_str(), m_folder.key().c_str()};
    std::thread m_thread;
    int m_port = 0;
    httplib::Headers m_pageHeaders;
    std::mutex m_mutex;
    httplib::Headers m_filmHeaders; ///< guarded by the mutex
};

TEST_F(HttpsTest, OpensPageAndFilmThroughARedirectWhenTheirCertificateIsTrusted) {
    ASSERT_EQ(open(trust()), 0);
    for (const httplib::Headers& headers : {m_pageHeaders, m_filmHeaders}) {
        EXPECT_EQ(headers.find("Cookie")->second, "visit=1");
        EXPECT_NE(headers.find("User-Agent")->second.find(" HbbTV/1.6.1 ("), std::string::npos);
    }
}

TEST_F(HttpsTest, RefusesACertificateOfItsOwn) {
    EXPECT_EQ(open(""), 1);
    EXPECT_TRUE(m_pageHeaders.empty()) << "the page was asked for";
}

} // namespace
