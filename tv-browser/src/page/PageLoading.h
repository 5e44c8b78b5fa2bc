/** Whether a page that was opened has come. */
#ifndef PAGELOADING_H
#define PAGELOADING_H

#include <QObject>
#include <QString>
#include <QTimer>

class QNetworkAccessManager;
class QNetworkReply;
class QWebFrame;

namespace tv {

/**
 * Follows the main frame's document from the start of a load to its one outcome, loaded() or failed().
 *
 * A load has ended well when the engine has loaded everything, when a script of the page stopped the rest, or when the
 * document is complete and its images and the like keep it waiting for some seconds. It has failed when the document
 * did not come, or came with an HTTP error.
 */
class PageLoading : public QObject {
    Q_OBJECT
public:
    /** @param mainFrame,network outlive this object */
    PageLoading(QWebFrame& mainFrame, QNetworkAccessManager& network);

    /** The engine could not load the document. The first reason of a load counts. */
    void documentRefused(const QString& reason);

    /** The document is complete; images and the like may still be on their way. */
    void documentCompleted();

signals:
    void loaded();
    /** @param reason a clause for people: what the server or the engine said */
    void failed(const QString& reason);

private:
    void begin();
    void replyFinished(QNetworkReply* reply);
    void end(bool ok);
    void reportLoaded();

    QWebFrame& m_mainFrame;
    QString m_failure;          ///< why the document did not come; empty while nothing is known
    QTimer m_patience;          ///< with what a complete document still waits for
    bool m_hasDocument = false; ///< the present load has its first bytes
    bool m_isReported = false;  ///< loaded() was emitted for the present load
};

} // namespace tv

#endif
