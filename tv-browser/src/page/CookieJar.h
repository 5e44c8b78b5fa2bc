/** The television's cookies. */
#ifndef COOKIEJAR_H
#define COOKIEJAR_H

#include "GuardedMutex.h"

#include <QNetworkCookieJar>
#include <QString>

namespace tv {

/** The cookies of the pages, which the players' requests carry too. */
class CookieJar : public QNetworkCookieJar {
    Q_OBJECT
public:
    /**
     * @param file keeps the cookies that have an expiry date, one Set-Cookie value in each line; read now, written with
     *             every change. Empty: cookies are kept in memory only.
     */
    explicit CookieJar(const QString& file);

    /** @return the value of a request's Cookie header; empty when no cookie fits. Thread: any. */
    QByteArray headerFor(const QUrl& url) const;

    /** Removes all cookies, also from the file. */
    void clear();

    QList<QNetworkCookie> cookiesForUrl(const QUrl& url) const override;
    bool setCookiesFromUrl(const QList<QNetworkCookie>& cookies, const QUrl& url) override;

private:
    void load() REQUIRES(m_mutex);
    void save() const REQUIRES(m_mutex);

    const QString m_file;
    mutable support::Mutex m_mutex; ///< guards the cookies of the base class
};

} // namespace tv

#endif
