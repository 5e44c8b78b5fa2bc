/** The engine's network access. */
#ifndef ENGINENETWORK_H
#define ENGINENETWORK_H

#include <QNetworkAccessManager>
#include <QSet>
#include <QUrl>
#include <QWebPluginFactory>

namespace tv {

/** Remembers the addresses of plug-in objects while the engine creates them; creates none itself. */
class PluginAddresses : public QWebPluginFactory {
    Q_OBJECT
public:
    using QWebPluginFactory::QWebPluginFactory;

    QList<Plugin> plugins() const override;
    QObject* create(const QString& mimeType, const QUrl& url, const QStringList& argumentNames,
                    const QStringList& argumentValues) const override;

    /** Forgets an address. @return true when it was remembered */
    bool take(const QUrl& url);

private:
    mutable QSet<QUrl> m_addresses;
};

/**
 * Fetches what the engine asks for, with three differences from a desktop browser: it leaves media to the players, it
 * knows the content types of television pages, and it can send requests through the proxy that breaks them.
 */
class EngineNetwork : public QNetworkAccessManager {
    Q_OBJECT
public:
    /** @param addresses outlives this object */
    explicit EngineNetwork(PluginAddresses& addresses, QObject* parent = nullptr);

    /**
     * Sends GET and HEAD requests by plain HTTP through a proxy on this machine.
     * @param port            where the proxy listens; 0 for no proxy
     * @param exceptAuthority "host:port" of a server whose requests do not go through the proxy
     */
    void setProxy(int port, const QString& exceptAuthority);

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request, QIODevice* data) override;

private:
    bool goesThroughProxy(Operation operation, const QUrl& url) const;

    PluginAddresses& m_addresses;
    QString m_exceptAuthority;
    QNetworkAccessManager m_proxied; ///< has the proxy: Qt chooses one later than it creates a request
};

} // namespace tv

#endif
