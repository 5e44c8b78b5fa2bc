#include "page/CookieJar.h"

#include "base/Print.h"

#include <QFile>
#include <QNetworkCookie>
#include <QSaveFile>

namespace tv {

CookieJar::CookieJar(const QString& file) : m_file(file) {
    load();
}

QByteArray CookieJar::headerFor(const QUrl& url) const {
    QByteArray header;
    for (const QNetworkCookie& cookie : cookiesForUrl(url)) {
        header += (header.isEmpty() ? "" : "; ") + cookie.toRawForm(QNetworkCookie::NameAndValueOnly);
    }
    return header;
}

void CookieJar::clear() {
    const support::Lock lock(m_mutex);
    setAllCookies({});
    save();
}

QList<QNetworkCookie> CookieJar::cookiesForUrl(const QUrl& url) const {
    const support::Lock lock(m_mutex);
    return QNetworkCookieJar::cookiesForUrl(url);
}

bool CookieJar::setCookiesFromUrl(const QList<QNetworkCookie>& cookies, const QUrl& url) {
    const support::Lock lock(m_mutex);
    const bool changed = QNetworkCookieJar::setCookiesFromUrl(cookies, url);
    if (changed) {
        save();
    }
    return changed;
}

void CookieJar::load() {
    QFile file(m_file);
    if (!m_file.isEmpty() && file.open(QIODevice::ReadOnly)) {
        setAllCookies(QNetworkCookie::parseCookies(file.readAll()));
    }
}

void CookieJar::save() const {
    if (m_file.isEmpty()) {
        return;
    }
    QSaveFile file(m_file);
    bool written = file.open(QIODevice::WriteOnly);
    for (const QNetworkCookie& cookie : allCookies()) {
        if (written && !cookie.isSessionCookie()) {
            written = file.write(cookie.toRawForm() + '\n') > 0;
        }
    }
    if (!written || !file.commit()) {
        printError(QStringLiteral("the cookies cannot be written to %1: %2").arg(m_file, file.errorString()));
    }
}

} // namespace tv
