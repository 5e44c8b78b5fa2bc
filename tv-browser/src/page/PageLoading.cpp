#include "page/PageLoading.h"

#include <QNetworkReply>
#include <QWebFrame>

namespace tv {

namespace {

constexpr int patienceMs = 3000;
constexpr int firstHttpError = 400;

QUrl withoutFragment(const QUrl& url) {
    return url.adjusted(QUrl::RemoveFragment);
}

} // namespace

PageLoading::PageLoading(QWebFrame& mainFrame, QNetworkAccessManager& network) : m_mainFrame(mainFrame) {
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &PageLoading::reportLoaded);
    connect(&mainFrame, &QWebFrame::loadStarted, this, &PageLoading::begin);
    connect(&mainFrame, &QWebFrame::urlChanged, this, [this] { m_hasDocument = true; });
    connect(&mainFrame, &QWebFrame::loadFinished, this, &PageLoading::end);
    connect(&network, &QNetworkAccessManager::finished, this, &PageLoading::replyFinished);
}

void PageLoading::begin() {
    m_patience.stop();
    m_hasDocument = false;
    m_isReported = false;
}

void PageLoading::documentRefused(const QString& reason) {
    if (m_failure.isEmpty()) {
        m_failure = reason;
    }
}

void PageLoading::documentCompleted() {
    if (m_hasDocument && m_failure.isEmpty()) {
        m_patience.start(patienceMs);
    }
}

void PageLoading::replyFinished(QNetworkReply* reply) {
    const QUrl url = withoutFragment(reply->url());
    const bool isDocument =
        reply->request().originatingObject() == &m_mainFrame &&
        (url == withoutFragment(m_mainFrame.requestedUrl()) || url == withoutFragment(m_mainFrame.url()));
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (isDocument && status >= firstHttpError) {
        m_failure = QStringLiteral("the server responded with HTTP status %1 %2")
                        .arg(status)
                        .arg(reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString());
    }
}

void PageLoading::end(bool ok) {
    m_patience.stop();
    // What has come of a document stays when its script stops the rest.
    if (m_failure.isEmpty() && (ok || m_hasDocument)) {
        reportLoaded();
        return;
    }
    const QString reason = m_failure.isEmpty() ? QStringLiteral("the engine cannot show it") : m_failure;
    m_failure.clear();
    emit failed(reason);
}

void PageLoading::reportLoaded() {
    if (!m_isReported) {
        m_isReported = true;
        emit loaded();
    }
}

} // namespace tv
