// The functions of media_requests.h.
#include "media_requests.h"

#include "MediaControlExport.h"
#include "http/MediaRequests.h"
#include "http/RequestProxy.h"
#include "http/TrustedCertificates.h"
#include "trace/MediaLog.h"

namespace {

std::string textOf(const char* text) {
    return text ? text : "";
}

} // namespace

MEDIA_EXPORT void mediaRequestsSetUserAgent(const char* userAgent) {
    media::setTelevisionUserAgent(textOf(userAgent));
}

MEDIA_EXPORT void mediaRequestsSetCookieCallback(MediaRequestsCookieCallback callback, void* userData) {
    media::setCookieSource(callback, userData);
}

MEDIA_EXPORT void mediaRequestsSetBaseUrl(const char* url) {
    media::setBaseUrl(textOf(url));
}

MEDIA_EXPORT void mediaRequestsSetProxy(const char* proxy, const char* except) {
    media::setRequestProxy(textOf(proxy), textOf(except));
}

MEDIA_EXPORT int mediaRequestsTrustCertificate(const char* pemFile) {
    const auto outcome = media::trustCertificates(textOf(pemFile));
    if (!outcome) {
        MEDIA_LOG_ERROR(outcome.reason());
    }
    return outcome ? 1 : 0;
}
