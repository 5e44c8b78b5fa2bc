/**
 * The engine's network access: without the media, since a player fetches what an object's `data` names, with the
 * content types of televisions' pages, and through a proxy that breaks things.
 */
#ifndef ENGINENETWORK_H
#define ENGINENETWORK_H

#include <QNetworkAccessManager>
#include <QSet>
#include <QUrl>
#include <QWebPluginFactory>

namespace tv {

/** Notes the addresses of plug-in objects while the engine makes them, and leaves the making to the engine. */
class PluginAddresses : public QWebPluginFactory {
    Q_OBJECT
public:
    using QWebPluginFactory::QWebPluginFactory;

    QList<Plugin> plugins() const override;
    QObject* create(const QString& mimeType, const QUrl& url, const QStringList& argumentNames,
                    const QStringList& argumentValues) const override;

    /** @return true when `url` was noted; it no longer is then */
    bool take(const QUrl& url);

private:
    mutable QSet<QUrl> m_addresses;
};

class EngineNetwork : public QNetworkAccessManager {
    Q_OBJECT
public:
    /** @param addresses outlives this object */
    explicit EngineNetwork(PluginAddresses& addresses, QObject* parent = nullptr);

    /**
     * Sends the requests for what is on other servers, those by plain HTTP, through a proxy on this machine.
     * @param port where it listens; 0 for none
     * @param exceptAuthority "host:port" of a server that is asked straight
     */
    void setProxy(int port, const QString& exceptAuthority);

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request, QIODevice* data) override;

private:
    bool goesThroughProxy(Operation operation, const QUrl& url) const;

    PluginAddresses& m_addresses;
    QString m_exceptAuthority;
    QNetworkAccessManager m_proxied; ///< Qt asks for the proxy later than it asks for a request
};

} // namespace tv

#endif
