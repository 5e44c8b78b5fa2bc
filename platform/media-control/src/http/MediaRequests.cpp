#include "http/MediaRequests.h"

#include "MediaControlExport.h"
#include "gst/GstPointer.h"
#include "http/RequestProxy.h"
#include "http/TrustedCertificates.h"
#include "media_requests.h"
#include "trace/MediaLog.h"

#include <cstdlib>
#include <memory>
#include <mutex>

namespace media {
namespace {

constexpr const char* DEFAULT_USER_AGENT =
    "HbbTV/1.6.1 (; desktop; media-control; " MEDIA_CONTROL_VERSION "; ; avcontrol; )";

struct Settings {
    std::mutex mutex; // guards all below
    std::string userAgent = DEFAULT_USER_AGENT;
    std::string baseUrl;
    std::mutex cookieMutex; // guards all below; held during the callback
    MediaRequestsCookieCallback cookieCallback = nullptr;
    void* cookieData = nullptr;
};

Settings& settings() {
    // Never destroyed: a player's thread may still run while the process ends.
    static Settings& instance = *new Settings;
    return instance;
}

struct Free {
    void operator()(char* text) const { std::free(text); }
};

std::unique_ptr<char, Free> cookiesFor(const std::string& url) {
    const std::lock_guard<std::mutex> lock(settings().cookieMutex);
    const MediaRequestsCookieCallback callback = settings().cookieCallback;
    return std::unique_ptr<char, Free>(callback ? callback(url.c_str(), settings().cookieData) : nullptr);
}

bool hasProperty(GstElement* element, const char* name) {
    return g_object_class_find_property(G_OBJECT_GET_CLASS(element), name) != nullptr;
}

} // namespace

void prepareRequests(GstElement* source, const std::string& url, bool televisionUserAgent) {
    if (televisionUserAgent && hasProperty(source, "user-agent")) {
        const std::lock_guard<std::mutex> lock(settings().mutex);
        g_object_set(source, "user-agent", settings().userAgent.c_str(), nullptr);
    }
    if (hasProperty(source, "cookies")) {
        const auto cookies = cookiesFor(url);
        if (cookies && *cookies) {
            const char* headers[] = {cookies.get(), nullptr}; // each makes a header of its own
            g_object_set(source, "cookies", headers, nullptr);
        }
    }
}

std::string absoluteUrl(const std::string& url) {
    std::string base;
    {
        const std::lock_guard<std::mutex> lock(settings().mutex);
        base = settings().baseUrl;
    }
    const TextPtr resolved(
        g_uri_resolve_relative(base.empty() ? nullptr : base.c_str(), url.c_str(), G_URI_FLAGS_ENCODED, nullptr));
    return resolved ? resolved.get() : "";
}

} // namespace media

MEDIA_EXPORT void mediaRequestsSetUserAgent(const char* userAgent) {
    const std::lock_guard<std::mutex> lock(media::settings().mutex);
    media::settings().userAgent = userAgent && *userAgent ? userAgent : media::DEFAULT_USER_AGENT;
}

MEDIA_EXPORT void mediaRequestsSetCookieCallback(MediaRequestsCookieCallback callback, void* userData) {
    const std::lock_guard<std::mutex> lock(media::settings().cookieMutex);
    media::settings().cookieCallback = callback;
    media::settings().cookieData = userData;
}

MEDIA_EXPORT void mediaRequestsSetBaseUrl(const char* url) {
    const std::lock_guard<std::mutex> lock(media::settings().mutex);
    media::settings().baseUrl = url ? url : "";
}

MEDIA_EXPORT void mediaRequestsSetProxy(const char* proxy, const char* except) {
    media::setRequestProxy(proxy ? proxy : "", except ? except : "");
}

MEDIA_EXPORT int mediaRequestsTrustCertificate(const char* pemFile) {
    const std::string problem = media::trustCertificates(pemFile ? pemFile : "");
    if (!problem.empty()) {
        MEDIA_LOG_ERROR(problem);
    }
    return problem.empty() ? 1 : 0;
}
