#include "page/TvPage.h"

#include "base/ScreenSize.h"
#include "page/EmbeddedObjects.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPalette>
#include <QWebFrame>

namespace tv {

TvPage::TvPage(Profile& profile)
    : m_profile(profile), m_application(new OwnerApplication(*mainFrame(), this)),
      m_console(new PageConsole(*this, *m_application)), m_network(m_pluginAddresses),
      m_playerRequests(profile, *mainFrame()), m_loading(*mainFrame(), m_network) {
    m_network.setCookieJar(&profile.cookies());
    profile.cookies().setParent(nullptr); // The profile owns it, not the network.
    setNetworkAccessManager(&m_network);
    setPluginFactory(&m_pluginAddresses);
    applySettings();
    addFrame(mainFrame());
    connect(this, &QWebPage::frameCreated, this, &TvPage::addFrame);
    connect(m_application, &OwnerApplication::ended, this, &TvPage::applicationEnded);
    connect(m_application, &OwnerApplication::documentCompleted, &m_loading, &PageLoading::documentCompleted);
    connect(&m_loading, &PageLoading::loaded, this, &TvPage::loaded);
    connect(&m_loading, &PageLoading::failed, this, [this](const QString& reason) {
        emit loadFailed(
            QStringLiteral("%1 cannot be opened: %2").arg(m_console->nameOf(mainFrame()->requestedUrl()), reason));
    });

    QFocusEvent focus(QEvent::FocusIn);
    event(&focus);
}

void TvPage::applySettings() {
    settings()->setAttribute(QWebSettings::PluginsEnabled, true);
    settings()->setAttribute(QWebSettings::AcceleratedCompositingEnabled, false);
    settings()->setAttribute(QWebSettings::LocalStorageEnabled, true);
    settings()->setAttribute(QWebSettings::JavascriptCanOpenWindows, true); // So that a request for one is seen.
    // For the inspector; and without it the engine does not know the position of each console message.
    settings()->setAttribute(QWebSettings::DeveloperExtrasEnabled, true);
    settings()->setUserStyleSheetUrl(embeddedObjectsStyleSheet());
    setProperty("_q_useNativeVirtualKeyAsDOMKey", true);

    setViewportSize(tvScreenSize);
    QPalette transparent = palette();
    transparent.setBrush(QPalette::Base, Qt::transparent);
    setPalette(transparent);
    mainFrame()->setScrollBarPolicy(Qt::Horizontal, Qt::ScrollBarAlwaysOff);
    mainFrame()->setScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAlwaysOff);
}

void TvPage::setSpatialNavigation(bool on) {
    settings()->setAttribute(QWebSettings::SpatialNavigationEnabled, on);
}

void TvPage::open(const QUrl& url) {
    mainFrame()->load(url);
}

QString TvPage::mediaPluginFile() {
    return mainFrame()
        ->evaluateJavaScript(QStringLiteral("(function() { var type = navigator.mimeTypes['video/mp4'];"
                                            " return type && type.enabledPlugin ? type.enabledPlugin.filename : '';"
                                            "})()"))
        .toString();
}

void TvPage::sendKey(const RemoteKey& key, bool pressed, bool isRepeat) {
    if (!receives(key)) {
        return;
    }
    QKeyEvent keyEvent(pressed ? QEvent::KeyPress : QEvent::KeyRelease, key.engineKey, Qt::NoModifier, 0,
                       static_cast<quint32>(key.code), 0, QString::fromLatin1(key.text), isRepeat);
    event(&keyEvent);
}

bool TvPage::supportsExtension(Extension extension) const {
    return extension == ErrorPageExtension;
}

/** Receives the reason why a document did not come, and offers no page in its place. */
bool TvPage::extension(Extension extension, const ExtensionOption* option, ExtensionReturn*) {
    if (extension == ErrorPageExtension) {
        const auto* error = static_cast<const ErrorPageExtensionOption*>(option);
        if (error->frame == mainFrame()) {
            m_loading.documentRefused(error->errorString);
        }
    }
    return false;
}

void TvPage::addFrame(QWebFrame* frame) {
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, this, [this, frame] {
        if (frame == mainFrame()) {
            m_application->reset();
        }
        frame->evaluateJavaScript(remoteKeyConstantsScript());
        installEmbeddedObjects(*frame, *m_application);
    });
}

bool TvPage::acceptNavigationRequest(QWebFrame* frame, const QNetworkRequest& request, NavigationType type) {
    if (!frame) {
        m_console->warn(QStringLiteral("%1 is not opened: the link's target is a new window, and this television has "
                                       "only one; remove the target")
                            .arg(request.url().toString()),
                        mainFrame()->url().toString(), 0);
        return false;
    }
    return QWebPage::acceptNavigationRequest(frame, request, type);
}

void TvPage::javaScriptAlert(QWebFrame*, const QString& message) {
    m_console->printDialog(QStringLiteral("alert"), message, QString());
}

bool TvPage::javaScriptConfirm(QWebFrame*, const QString& message) {
    m_console->printDialog(QStringLiteral("confirm"), message, QStringLiteral(" returned true"));
    return true;
}

bool TvPage::javaScriptPrompt(QWebFrame*, const QString& message, const QString& defaultValue, QString* result) {
    m_console->printDialog(QStringLiteral("prompt"), message, QStringLiteral(" returned \"%1\"").arg(defaultValue));
    *result = defaultValue;
    return true;
}

QString TvPage::chooseFile(QWebFrame*, const QString&) {
    return {}; // A television has no files to choose from, and the default is a dialog.
}

QString TvPage::userAgentForUrl(const QUrl&) const {
    return m_profile.userAgent();
}

} // namespace tv
