/**
 * The engine's network access: without the media, since a player fetches what an object's `data` names, and with the
 * content types of televisions' pages.
 */
#ifndef ENGINENETWORK_H
#define ENGINENETWORK_H

#include <QNetworkAccessManager>
#include <QSet>
#include <QUrl>
#include <QWebPluginFactory>

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

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request, QIODevice* data) override;

private:
    PluginAddresses& m_addresses;
};

#endif
