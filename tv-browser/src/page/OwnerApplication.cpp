#include "page/OwnerApplication.h"

#include "remote/RemoteKeys.h"

#include <QTimer>
#include <QUrl>
#include <QWebElement>
#include <QWebFrame>
#include <utility>

namespace tv {

namespace {

const QString opacity = QStringLiteral("opacity");

} // namespace

OwnerApplication::OwnerApplication(QWebFrame& mainFrame, QObject* parent) : QObject(parent), m_mainFrame(mainFrame) {
    reset();
}

void OwnerApplication::reset() {
    // The default of an application that no broadcast has started (OIPF DAE 7.2.5).
    m_keyset = supportedKeyset() & ~KEYSET_OTHER;
    m_otherKeys.clear();
    m_isVisible = true;
    m_isReplaced = false;
}

bool OwnerApplication::receives(int code, int keyset) const {
    return (m_keyset & keyset & ~KEYSET_OTHER) != 0 || ((m_keyset & KEYSET_OTHER) && m_otherKeys.contains(code));
}

int OwnerApplication::supportedKeyset() const {
    return remoteKeysets();
}

int OwnerApplication::setKeyset(int mask, const QVariantList& otherKeys) {
    m_keyset = mask & supportedKeyset();
    m_otherKeys.clear();
    for (const QVariant& code : otherKeys) {
        m_otherKeys.append(code.toInt());
    }
    return m_keyset;
}

QString OwnerApplication::keyLabel(int code) const {
    const RemoteKey* key = remoteKeyOfCode(code);
    return key ? QString::fromLatin1(key->name) : QString();
}

void OwnerApplication::setVisible(bool visible) {
    if (visible == m_isVisible) {
        return;
    }
    m_isVisible = visible;
    QWebElement root = m_mainFrame.documentElement();
    if (!visible) {
        m_formerOpacity = root.styleProperty(opacity, QWebElement::InlineStyle);
    }
    root.setStyleProperty(opacity, QString()); // A plain value does not replace an important one.
    root.setStyleProperty(opacity, visible ? m_formerOpacity : QStringLiteral("0 !important"));
}

bool OwnerApplication::createApplication(const QString& address) {
    const QUrl url(address);
    if (url.scheme() != QLatin1String("http") && url.scheme() != QLatin1String("https")) {
        return false;
    }
    m_isReplaced = true;
    open(url);
    return true;
}

void OwnerApplication::destroyApplication() {
    if (!m_isReplaced) {
        m_isReplaced = true;
        open(QUrl(QStringLiteral("about:blank")));
        emit ended();
    }
}

QString OwnerApplication::takeConsoleText() {
    return std::exchange(m_consoleText, QString());
}

void OwnerApplication::open(const QUrl& url) {
    QTimer::singleShot(0, this, [this, url] { m_mainFrame.load(url); });
}

} // namespace tv
