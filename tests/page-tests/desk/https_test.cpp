// Pages of a real server: https with a certificate of its own, redirects, content types, cookies, media.
#include "environment.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <httplib.h>
#include <memory>
#include <mutex>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

/// A certificate for 127.0.0.1, signed by itself.
Certificate newCertificate(EVP_PKEY* key) {
    constexpr long oneDay = 24L * 3600;
    Certificate certificate(X509_new(), &X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -oneDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), oneDay);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME* name = X509_get_subject_name(certificate.get());
    const auto* host = reinterpret_cast<const unsigned char*>("127.0.0.1");
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, host, -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    X509_EXTENSION* hosts = X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1");
    X509_add_ext(certificate.get(), hosts, -1);
    X509_EXTENSION_free(hosts);
    X509_sign(certificate.get(), key, EVP_sha256());
    return certificate;
}

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
    HttpsTest()
        : m_key(EVP_RSA_gen(2048), &EVP_PKEY_free), m_certificate(newCertificate(m_key.get())),
          m_server(m_certificate.get(), m_key.get()) {
        std::string pattern = (fs::temp_directory_path() / "https-XXXXXX").string();
        m_folder = mkdtemp(pattern.data());
        std::FILE* file = std::fopen((m_folder / "certificate.pem").c_str(), "w");
        PEM_write_X509(file, m_certificate.get());
        std::fclose(file);
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
        m_server.set_mount_point("/application/media", environment("MEDIA"));
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
        fs::remove_all(m_folder);
    }

    /// @return the browser's exit code
    int open(const std::string& options) const {
        const std::string command = environment("TV_BROWSER") + " --headless --verdict --exit-after 30 " + options +
                                    " https://127.0.0.1:" + std::to_string(m_port) + "/start";
        return WEXITSTATUS(std::system(command.c_str()));
    }

    std::string trust() const { return "--trust " + (m_folder / "certificate.pem").string(); }

    Key m_key;
    Certificate m_certificate;
    httplib::SSLServer m_server;
    std::thread m_thread;
    fs::path m_folder;
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
