#include "http/MediaRequests.h"

#include "GuardedMutex.h"
#include "gst/GstPointer.h"

#include <cstdlib>
#include <memory>

namespace media {
namespace {

constexpr const char* DEFAULT_USER_AGENT =
    "HbbTV/1.6.1 (; desktop; media-control; " MEDIA_CONTROL_VERSION "; ; avcontrol; )";

struct Settings {
    support::Mutex mutex;
    std::string userAgent GUARDED_BY(mutex) = DEFAULT_USER_AGENT;
    std::string baseUrl GUARDED_BY(mutex);

    support::Mutex cookieMutex; // held during the callback, so that setCookieSource waits for its end
    MediaRequestsCookieCallback cookieCallback GUARDED_BY(cookieMutex) = nullptr;
    void* cookieData GUARDED_BY(cookieMutex) = nullptr;
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
    const support::Lock lock(settings().cookieMutex);
    const MediaRequestsCookieCallback callback = settings().cookieCallback;
    return std::unique_ptr<char, Free>(callback ? callback(url.c_str(), settings().cookieData) : nullptr);
}

bool hasProperty(GstElement* element, const char* name) {
    return g_object_class_find_property(G_OBJECT_GET_CLASS(element), name) != nullptr;
}

} // namespace

void prepareRequests(GstElement* source, const std::string& url, bool televisionUserAgent) {
    if (televisionUserAgent && hasProperty(source, "user-agent")) {
        const support::Lock lock(settings().mutex);
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
        const support::Lock lock(settings().mutex);
        base = settings().baseUrl;
    }
    const TextPtr resolved(
        g_uri_resolve_relative(base.empty() ? nullptr : base.c_str(), url.c_str(), G_URI_FLAGS_ENCODED, nullptr));
    return resolved ? resolved.get() : "";
}

void setTelevisionUserAgent(const std::string& userAgent) {
    const support::Lock lock(settings().mutex);
    settings().userAgent = userAgent.empty() ? DEFAULT_USER_AGENT : userAgent;
}

void setCookieSource(MediaRequestsCookieCallback callback, void* userData) {
    const support::Lock lock(settings().cookieMutex);
    settings().cookieCallback = callback;
    settings().cookieData = userData;
}

void setBaseUrl(const std::string& url) {
    const support::Lock lock(settings().mutex);
    settings().baseUrl = url;
}

} // namespace media
