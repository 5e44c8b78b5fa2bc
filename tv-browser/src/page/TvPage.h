/**
 * The page of the television: a QWebPage without a view, 1280x720, with the remote control's keys.
 */
#ifndef TVPAGE_H
#define TVPAGE_H

#include "base/ScreenSize.h"
#include "page/EngineNetwork.h"
#include "page/OwnerApplication.h"
#include "page/PlayerRequests.h"
#include "page/Profile.h"
#include "remote/RemoteKeys.h"

#include <QString>
#include <QTimer>
#include <QWebPage>
#include <functional>

namespace tv {

class TvPage : public QWebPage {
    Q_OBJECT
public:
    /** @param profile outlives the page */
    explicit TvPage(Profile& profile);

    /** Sets how addresses are written in messages to the page's author. */
    void setAddressNames(std::function<QString(const QUrl&)> nameOf);

    /** Whether the arrow keys move the focus when the page has no other use for them. */
    void setSpatialNavigation(bool on);

    /** Starts loading; loaded() or loadFailed() follows. */
    void open(const QUrl& url);

    EngineNetwork& network() { return m_network; }

    /** @return file name of the plug-in that the engine would use for `video/mp4`; empty when there is none */
    QString mediaPluginFile();

    /** @return false when the page does not get that key, because it is not in the key set that the page has asked for
     */
    bool receives(const RemoteKey& key) const { return m_application.receives(key.code, key.keyset); }

    /**
     * Gives a key to the page, as if it were pressed or released on the remote control.
     * Does nothing with one that the page does not get.
     */
    void sendKey(const RemoteKey& key, bool pressed, bool isRepeat = false);

    bool supportsExtension(Extension extension) const override;
    bool extension(Extension extension, const ExtensionOption* option, ExtensionReturn* output) override;

signals:
    /** The page wrote to its console. @param isScriptError the engine did, for a script that failed */
    void consoleMessage(bool isScriptError, const QString& level, const QString& message, int line,
                        const QString& address);
    /** The page has ended its application. */
    void applicationEnded();
    /** The page opened last is there: loaded, or complete but for parts such as images that keep it waiting. */
    void loaded();
    /** The page opened last cannot be shown; `reason` is a sentence for the user. */
    void loadFailed(const QString& reason);

protected:
    bool acceptNavigationRequest(QWebFrame* frame, const QNetworkRequest& request, NavigationType type) override;
    void javaScriptAlert(QWebFrame* frame, const QString& message) override;
    bool javaScriptConfirm(QWebFrame* frame, const QString& message) override;
    bool javaScriptPrompt(QWebFrame* frame, const QString& message, const QString& defaultValue,
                          QString* result) override;
    QString chooseFile(QWebFrame* frame, const QString& oldFile) override;
    QString userAgentForUrl(const QUrl& url) const override;

private:
    void addFrame(QWebFrame* frame);
    void replyFinished(QNetworkReply* reply);
    static void certificateRefused(QNetworkReply* reply, const QList<QSslError>& errors);
    void loadEnded(bool ok);
    void tellLoaded();
    void tellMarkupError(const QWebFrame& frame);
    void warn(const QString& text, const QString& address, int line);
    void printConsoleMessage(MessageSource source, MessageLevel level, const QString& message, int line,
                             const QString& address);
    void tell(MessageSource source, MessageLevel level, const QString& message, int line, const QString& address);
    void printDialog(const char* kind, const QString& message, const QString& answer);

    Profile& m_profile;
    OwnerApplication m_application;
    PluginAddresses m_pluginAddresses;
    EngineNetwork m_network;
    std::function<QString(const QUrl&)> m_nameOf;
    PlayerRequests m_playerRequests;
    int m_dialogs = 0;          ///< that the present page has opened
    QString m_failure;          ///< why the main frame's document did not come
    QTimer m_patience;          ///< with what a complete document still waits for
    bool m_hasDocument = false; ///< of the load that has begun last
    bool m_isTold = false;      ///< that the page is there
};

} // namespace tv

#endif
