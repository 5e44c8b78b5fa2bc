#include "page/Profile.h"

#include <QDir>
#include <QFile>
#include <QWebSettings>

namespace tv {

namespace {

QString inFolder(const QString& folder, const char* name) {
    return folder.isEmpty() ? QString() : QDir(folder).filePath(QString::fromLatin1(name));
}

/** In the form of ETSI TS 102 796: HbbTV/1.6.1 (capabilities; vendor; model; software; hardware; family; reserved). */
QString defaultUserAgent() {
    return QStringLiteral("Mozilla/5.0 (Linux) AppleWebKit/602.1 (KHTML, like Gecko) "
                          "HbbTV/1.6.1 (; desktop; tv-browser; " TV_BROWSER_VERSION "; ; avcontrol; )");
}

QString userAgentOf(const QString& folder) {
    QFile file(inFolder(folder, "user-agent"));
    if (!folder.isEmpty() && file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        const QString own = QString::fromUtf8(file.readLine()).trimmed();
        if (!own.isEmpty()) {
            return own;
        }
    }
    return defaultUserAgent();
}

} // namespace

Profile::Profile(const QString& folder, const QString& userAgent)
    : m_folder(folder), m_cookies(inFolder(folder, "cookies")),
      m_userAgent(userAgent.isEmpty() ? userAgentOf(folder) : userAgent) {
    const QString storageFolder = inFolder(folder, "storage");
    if (!storageFolder.isEmpty()) {
        QDir().mkpath(storageFolder);
    }
    QWebSettings::globalSettings()->setLocalStoragePath(storageFolder); // Read once, when a page is created.
}

int Profile::localPort() const {
    QFile file(inFolder(m_folder, "port"));
    return !m_folder.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readLine().trimmed().toInt() : 0;
}

void Profile::setLocalPort(int port) const {
    QFile file(inFolder(m_folder, "port"));
    if (!m_folder.isEmpty() && port != localPort() && file.open(QIODevice::WriteOnly)) {
        file.write(QByteArray::number(port) + '\n');
    }
}

void Profile::clearFolder(const QString& folder) {
    QFile::remove(inFolder(folder, "cookies"));
    QDir(inFolder(folder, "storage")).removeRecursively();
}

} // namespace tv
