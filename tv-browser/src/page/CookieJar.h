/**
 * The television's cookies: those of the pages, which the players' requests carry too.
 */
#ifndef COOKIEJAR_H
#define COOKIEJAR_H

#include <QMutex>
#include <QNetworkCookieJar>
#include <QString>

namespace tv {

class CookieJar : public QNetworkCookieJar {
    Q_OBJECT
public:
    /**
     * @param file where cookies with an expiry date are kept, in the form of Set-Cookie, one a line; read now, written
     *             with every change. Empty: nothing is kept.
     */
    explicit CookieJar(const QString& file);

    /** @return value of the Cookie header for a request, empty for none. Thread: any. */
    QByteArray headerFor(const QUrl& url) const;

    /** Forgets all cookies, those in the file too. */
    void clear();

    QList<QNetworkCookie> cookiesForUrl(const QUrl& url) const override;
    bool setCookiesFromUrl(const QList<QNetworkCookie>& cookies, const QUrl& url) override;

private:
    void load();
    void save() const;

    const QString m_file;
    mutable QMutex m_mutex; ///< guards the cookies of the base class
};

} // namespace tv

#endif
