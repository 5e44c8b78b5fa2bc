#include "page/TvPage.h"

#include "base/Print.h"
#include "page/EmbeddedObjects.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QNetworkReply>
#include <QPalette>
#include <QRegularExpression>
#include <QSslError>
#include <QWebElement>
#include <QWebFrame>

namespace tv {

namespace {

constexpr int mostDialogs = 20;

/** How long a page whose document is complete waits for its images and the like. */
constexpr int patienceMs = 3000;

} // namespace

TvPage::TvPage(Profile& profile)
    : m_profile(profile), m_application(*mainFrame()), m_network(m_pluginAddresses),
      m_nameOf([](const QUrl& url) { return url.toString(); }), m_playerRequests(profile, *mainFrame()) {
    m_network.setCookieJar(&profile.cookies());
    profile.cookies().setParent(nullptr); // The profile's, not the network's.
    setNetworkAccessManager(&m_network);
    setPluginFactory(&m_pluginAddresses);
    settings()->setAttribute(QWebSettings::PluginsEnabled, true);
    settings()->setAttribute(QWebSettings::AcceleratedCompositingEnabled, false);
    settings()->setAttribute(QWebSettings::LocalStorageEnabled, true);
    settings()->setAttribute(QWebSettings::JavascriptCanOpenWindows, true); // To hear of it, and refuse.
    // The inspector; and without it the engine does not know the place of each console message.
    settings()->setAttribute(QWebSettings::DeveloperExtrasEnabled, true);
    settings()->setUserStyleSheetUrl(embeddedObjectsStyleSheet());
    setProperty("_q_useNativeVirtualKeyAsDOMKey", true);

    setViewportSize(tvScreenSize);
    QPalette transparent = palette();
    transparent.setBrush(QPalette::Base, Qt::transparent);
    setPalette(transparent);
    mainFrame()->setScrollBarPolicy(Qt::Horizontal, Qt::ScrollBarAlwaysOff);
    mainFrame()->setScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAlwaysOff);

    connect(&m_application, &OwnerApplication::ended, this, &TvPage::applicationEnded);
    connect(&m_application, &OwnerApplication::warned, this, &TvPage::warn);
    connect(&m_application, &OwnerApplication::documentCompleted, this, [this] {
        if (m_hasDocument && m_failure.isEmpty()) {
            m_patience.start(patienceMs);
        }
    });
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &TvPage::tellLoaded);
    connect(mainFrame(), &QWebFrame::loadStarted, this, [this] {
        m_patience.stop();
        m_hasDocument = false;
        m_isTold = false;
    });
    connect(mainFrame(), &QWebFrame::urlChanged, this, [this] { m_hasDocument = true; });
    addFrame(mainFrame());
    connect(this, &QWebPage::frameCreated, this, &TvPage::addFrame);
    connect(this, &QWebPage::consoleMessageReceived, this, &TvPage::printConsoleMessage);
    connect(mainFrame(), &QWebFrame::loadFinished, this, &TvPage::loadEnded);
    connect(&m_network, &QNetworkAccessManager::finished, this, &TvPage::replyFinished);
    connect(&m_network, &QNetworkAccessManager::sslErrors, this, &TvPage::certificateRefused);

    QFocusEvent focus(QEvent::FocusIn);
    event(&focus);
}

void TvPage::setAddressNames(std::function<QString(const QUrl&)> nameOf) {
    m_nameOf = std::move(nameOf);
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

/** Hears why a document did not come, and offers no page in its place. */
bool TvPage::extension(Extension extension, const ExtensionOption* option, ExtensionReturn*) {
    if (extension == ErrorPageExtension) {
        const auto* error = static_cast<const ErrorPageExtensionOption*>(option);
        if (error->frame == mainFrame() && m_failure.isEmpty()) {
            m_failure = error->errorString;
        }
    }
    return false;
}

void TvPage::addFrame(QWebFrame* frame) {
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, this, [this, frame] {
        if (frame == mainFrame()) {
            m_application.reset();
            m_dialogs = 0;
        }
        frame->evaluateJavaScript(remoteKeyConstantsScript());
        installEmbeddedObjects(*frame, m_application);
    });
    connect(frame, &QWebFrame::loadFinished, this, [this, frame] { tellMarkupError(*frame); });
}

void TvPage::replyFinished(QNetworkReply* reply) {
    const QUrl url = reply->url().adjusted(QUrl::RemoveFragment);
    if (reply->request().originatingObject() != mainFrame() ||
        (url != mainFrame()->requestedUrl().adjusted(QUrl::RemoveFragment) &&
         url != mainFrame()->url().adjusted(QUrl::RemoveFragment))) {
        return;
    }
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= 400) {
        m_failure = QStringLiteral("the server answered %1 %2")
                        .arg(status)
                        .arg(reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString());
    }
}

void TvPage::certificateRefused(QNetworkReply* reply, const QList<QSslError>& errors) {
    printError(QStringLiteral("the certificate of %1 is refused: %2; if it is your test server's own, use --trust")
                   .arg(reply->url().host(), errors.constFirst().errorString()));
}

void TvPage::loadEnded(bool ok) {
    m_patience.stop();
    // What came of a document stays when its script stops the rest.
    if (m_failure.isEmpty() && (ok || m_hasDocument)) {
        tellLoaded();
        return;
    }
    emit loadFailed(QStringLiteral("%1 cannot be opened: %2")
                        .arg(m_nameOf(mainFrame()->requestedUrl()),
                             m_failure.isEmpty() ? QStringLiteral("the engine cannot show it") : m_failure));
    m_failure.clear();
}

void TvPage::tellLoaded() {
    if (!m_isTold) {
        m_isTold = true;
        emit loaded();
    }
}

/** Looks for the place where the engine has given up reading XHTML, which it shows in the page. */
void TvPage::tellMarkupError(const QWebFrame& frame) {
    static const QRegularExpression error(QStringLiteral("error on line (\\d+) at column (\\d+): (.*)"));
    const QRegularExpressionMatch match =
        error.match(frame.findFirstElement(QStringLiteral("parsererror")).toPlainText());
    if (match.hasMatch()) {
        tell(XmlMessageSource, ErrorMessageLevel,
             QStringLiteral("the page is not well-formed at column %1: %2").arg(match.captured(2), match.captured(3)),
             match.captured(1).toInt(), frame.url().toString());
    }
}

bool TvPage::acceptNavigationRequest(QWebFrame* frame, const QNetworkRequest& request, NavigationType type) {
    if (!frame) {
        warn(QStringLiteral("%1 is not opened: its target is a window of its own, and this television has one window; "
                            "leave the target out")
                 .arg(request.url().toString()),
             mainFrame()->url().toString(), 0);
        return false;
    }
    return QWebPage::acceptNavigationRequest(frame, request, type);
}

void TvPage::warn(const QString& text, const QString& address, int line) {
    tell(ConsoleAPIMessageSource, WarningMessageLevel, text, line, address);
}

void TvPage::printConsoleMessage(MessageSource source, MessageLevel level, const QString& message, int line,
                                 const QString& address) {
    const QString whole = m_application.takeConsoleText();
    tell(source, level, whole.isNull() ? message : whole, line, address);
}

void TvPage::tell(MessageSource source, MessageLevel level, const QString& message, int line, const QString& address) {
    const QString kind = level == ErrorMessageLevel     ? QStringLiteral("error")
                         : level == WarningMessageLevel ? QStringLiteral("warning")
                                                        : QStringLiteral("log");
    const QString file = m_nameOf(QUrl(address));
    const QString place = line > 0 ? QStringLiteral("%1:%2").arg(file).arg(line) : file;
    printMessage(place + QLatin1String(": ") + (level == LogMessageLevel ? QString() : kind + QLatin1String(": ")) +
                 message);
    emit consoleMessage(source == JSMessageSource && level == ErrorMessageLevel, kind, message, line, file);
}

void TvPage::printDialog(const char* kind, const QString& message, const QString& answer) {
    if (++m_dialogs > mostDialogs) {
        return;
    }
    printMessage(QStringLiteral("%1: %2(\"%3\")%4%5")
                     .arg(m_nameOf(mainFrame()->url()), QLatin1String(kind), message, answer,
                          m_dialogs == mostDialogs
                              ? QStringLiteral("; the further dialogs of this page are not printed")
                              : QString()));
}

void TvPage::javaScriptAlert(QWebFrame*, const QString& message) {
    printDialog("alert", message, QString());
}

bool TvPage::javaScriptConfirm(QWebFrame*, const QString& message) {
    printDialog("confirm", message, QStringLiteral(" answered with true"));
    return true;
}

bool TvPage::javaScriptPrompt(QWebFrame*, const QString& message, const QString& defaultValue, QString* result) {
    printDialog("prompt", message, QStringLiteral(" answered with \"%1\"").arg(defaultValue));
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
