/** The television's page: a QWebPage without a view. */
#ifndef TVPAGE_H
#define TVPAGE_H

#include "page/EngineNetwork.h"
#include "page/OwnerApplication.h"
#include "page/PageConsole.h"
#include "page/PageLoading.h"
#include "page/PlayerRequests.h"
#include "page/Profile.h"
#include "remote/RemoteKeys.h"

#include <QString>
#include <QWebPage>

namespace tv {

/**
 * The engine, set up as a television's: its screen size, its network, its embedded objects, the keys of its remote
 * control, and without the dialogs for which a desktop engine needs a user.
 */
class TvPage : public QWebPage {
    Q_OBJECT
public:
    /** @param profile outlives the page */
    explicit TvPage(Profile& profile);

    /** Sets whether the arrow keys move the focus when the page has no other use for them. */
    void setSpatialNavigation(bool on);

    /** Starts loading; loaded() or loadFailed() follows. */
    void open(const QUrl& url);

    EngineNetwork& network() { return m_network; }
    PageConsole& console() { return *m_console; }

    /** @return file name of the plug-in that the engine would use for `video/mp4`; empty when there is none */
    QString mediaPluginFile();

    /** @return false when the page does not get that key, because the key is in none of the key sets that it has
     * requested */
    bool receives(const RemoteKey& key) const { return m_application->receives(key.code, key.keyset); }

    /** Sends a key of the remote control to the page, unless the page does not get that key. */
    void sendKey(const RemoteKey& key, bool pressed, bool isRepeat = false);

    bool supportsExtension(Extension extension) const override;
    bool extension(Extension extension, const ExtensionOption* option, ExtensionReturn* output) override;

signals:
    /** The page has ended its application. */
    void applicationEnded();
    /** The page opened last is there: see PageLoading. */
    void loaded();
    /** The page opened last cannot be shown. @param reason a sentence for the user, without a full stop */
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
    void applySettings();
    void addFrame(QWebFrame* frame);

    Profile& m_profile;
    // Children, which go after the page's content: a page that is unloaded still uses them.
    OwnerApplication* const m_application;
    PageConsole* const m_console;
    PluginAddresses m_pluginAddresses;
    EngineNetwork m_network;
    PlayerRequests m_playerRequests;
    PageLoading m_loading;
};

} // namespace tv

#endif
