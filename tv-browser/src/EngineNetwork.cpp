#include "EngineNetwork.h"

#include <QNetworkRequest>

QList<QWebPluginFactory::Plugin> PluginAddresses::plugins() const {
    return {};
}

QObject* PluginAddresses::create(const QString&, const QUrl& url, const QStringList&, const QStringList&) const {
    if (!url.isEmpty()) {
        m_addresses.insert(url);
    }
    return nullptr;
}

bool PluginAddresses::take(const QUrl& url) {
    return m_addresses.remove(url);
}

EngineNetwork::EngineNetwork(PluginAddresses& addresses, QObject* parent)
    : QNetworkAccessManager(parent), m_addresses(addresses) {}

QNetworkReply* EngineNetwork::createRequest(Operation operation, const QNetworkRequest& request, QIODevice* data) {
    // The download for a plug-in, unlike the page's own requests, names no Referer.
    if (!request.hasRawHeader("Referer") && m_addresses.take(request.url())) {
        return QNetworkAccessManager::createRequest(operation, QNetworkRequest(), data);
    }
    return QNetworkAccessManager::createRequest(operation, request, data);
}
