#include "page/EngineNetwork.h"

#include "base/Print.h"

#include <QNetworkCookieJar>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslError>

namespace tv {

namespace {

/** Gives access to a protected function of QNetworkReply: here the network's owner sets a header. */
struct ReplyHeader : QNetworkReply {
    static void set(QNetworkReply& reply, QNetworkRequest::KnownHeaders header, const QVariant& value) {
        (reply.*(&ReplyHeader::setHeader))(header, value);
    }
};

/**
 * Television pages have content types of their own, which the engine would offer to save. Each is XHTML, as the CE-HTML
 * and HbbTV profiles define it.
 */
void showAsXhtml(QNetworkReply& reply) {
    const QString type = reply.header(QNetworkRequest::ContentTypeHeader).toString();
    const QString name = type.section(QLatin1Char(';'), 0, 0).trimmed().toLower();
    if (name == QLatin1String("application/vnd.hbbtv.xhtml+xml") || name == QLatin1String("application/ce-html+xml")) {
        const int parameters = type.indexOf(QLatin1Char(';'));
        ReplyHeader::set(reply, QNetworkRequest::ContentTypeHeader,
                         QStringLiteral("application/xhtml+xml") + (parameters < 0 ? QString() : type.mid(parameters)));
    }
}

void reportRefusedCertificate(QNetworkReply* reply, const QList<QSslError>& errors) {
    printError(QStringLiteral("the certificate of %1 is refused: %2; if it is your test server's own, use --trust")
                   .arg(reply->url().host(), errors.constFirst().errorString()));
}

} // namespace

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
    : QNetworkAccessManager(parent), m_addresses(addresses) {
    connect(&m_proxied, &QNetworkAccessManager::finished, this, &QNetworkAccessManager::finished);
    connect(this, &QNetworkAccessManager::sslErrors, this, &reportRefusedCertificate);
}

void EngineNetwork::setProxy(int port, const QString& exceptAuthority) {
    m_exceptAuthority = exceptAuthority;
    QObject* owner = cookieJar()->parent();
    m_proxied.setCookieJar(cookieJar());
    cookieJar()->setParent(owner);
    m_proxied.setProxy(port == 0 ? QNetworkProxy(QNetworkProxy::NoProxy)
                                 : QNetworkProxy(QNetworkProxy::HttpCachingProxy, QStringLiteral("127.0.0.1"),
                                                 static_cast<quint16>(port)));
}

bool EngineNetwork::goesThroughProxy(Operation operation, const QUrl& url) const {
    return m_proxied.proxy().type() == QNetworkProxy::HttpCachingProxy && url.scheme() == QLatin1String("http") &&
           url.authority() != m_exceptAuthority && (operation == GetOperation || operation == HeadOperation);
}

QNetworkReply* EngineNetwork::createRequest(Operation operation, const QNetworkRequest& request, QIODevice* data) {
    // The download for a plug-in, unlike the page's own requests, names no Referer.
    if (!request.hasRawHeader("Referer") && m_addresses.take(request.url())) {
        return QNetworkAccessManager::createRequest(operation, QNetworkRequest(), data);
    }
    QNetworkReply* reply = nullptr;
    if (goesThroughProxy(operation, request.url())) {
        reply = operation == GetOperation ? m_proxied.get(request) : m_proxied.head(request);
    } else {
        reply = QNetworkAccessManager::createRequest(operation, request, data);
    }
    // Connected before the engine is, so that the engine reads what is written here.
    connect(reply, &QNetworkReply::metaDataChanged, reply, [reply] { showAsXhtml(*reply); });
    return reply;
}

} // namespace tv
