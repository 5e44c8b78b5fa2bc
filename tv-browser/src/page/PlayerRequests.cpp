#include "page/PlayerRequests.h"

#include "media_requests.h"
#include "page/Profile.h"

#include <QUrl>
#include <QWebFrame>
#include <cstring>

namespace tv {

PlayerRequests::PlayerRequests(Profile& profile, const QWebFrame& mainFrame) {
    mediaRequestsSetUserAgent(profile.userAgent().toUtf8().constData());
    mediaRequestsSetCookieCallback(&PlayerRequests::cookies, &profile);
    QObject::connect(&mainFrame, &QWebFrame::urlChanged, &mainFrame,
                     [](const QUrl& url) { mediaRequestsSetBaseUrl(url.toEncoded().constData()); });
}

PlayerRequests::~PlayerRequests() {
    mediaRequestsSetCookieCallback(nullptr, nullptr);
}

char* PlayerRequests::cookies(const char* url, void* profile) {
    const QByteArray header = static_cast<Profile*>(profile)->cookies().headerFor(QUrl::fromEncoded(QByteArray(url)));
    return header.isEmpty() ? nullptr : strdup(header.constData());
}

} // namespace tv
