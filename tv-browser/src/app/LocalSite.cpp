#include "app/LocalSite.h"

#include "app/PageTarget.h"
#include "base/Print.h"
#include "page/Profile.h"

#include <QFileInfo>

namespace tv {

Result<QUrl, QString> LocalSite::open(const QString& target, const QList<QPair<QString, QString>>& mounts,
                                      const Profile& profile) {
    const auto checked = checkPageTarget(target);
    if (!checked) {
        return Failure{checked.reason()};
    }
    const bool isAddress = isPageAddress(QUrl(target));
    const auto mounted = mount(target, isAddress, mounts);
    if (!mounted) {
        return Failure{mounted.reason()};
    }
    if (isAddress && mounts.isEmpty()) {
        return QUrl(target);
    }
    const auto started = start(profile);
    if (!started) {
        return Failure{started.reason()};
    }
    if (isAddress) {
        return QUrl(target);
    }
    const QFileInfo file(target);
    QUrl url(QStringLiteral("http://") + m_authority);
    url.setPath(QLatin1Char('/') + (file.isDir() ? QString() : file.fileName()), QUrl::DecodedMode);
    return url;
}

Result<void, QString> LocalSite::mount(const QString& target, bool isAddress,
                                       const QList<QPair<QString, QString>>& mounts) {
    for (const auto& [name, folder] : mounts) {
        if (!m_server.mount(name.toStdString(), folder.toLocal8Bit().toStdString())) {
            return Failure{QStringLiteral("--mount %1=%2: the name must not contain a slash, and the folder must exist")
                               .arg(name, folder)};
        }
    }
    if (!isAddress) {
        const QFileInfo file(target);
        const QString folder = file.isDir() ? file.filePath() : file.path();
        m_server.mount(std::string(), folder.toLocal8Bit().toStdString());
    }
    return {};
}

/** On the profile's port if possible: the pages' localStorage belongs to it. */
Result<void, QString> LocalSite::start(const Profile& profile) {
    const int wantedPort = profile.localPort();
    const int port = m_server.start(wantedPort);
    if (port == 0) {
        return Failure{QStringLiteral("no port is free on 127.0.0.1 to serve local files")};
    }
    if (wantedPort == 0) {
        profile.setLocalPort(port);
    } else if (port != wantedPort) {
        printError(QStringLiteral("the profile's port %1 is in use, perhaps by another tv-browser with this profile; "
                                  "local pages do not find their localStorage this time")
                       .arg(wantedPort));
    }
    m_authority = QStringLiteral("127.0.0.1:%1").arg(port);
    return {};
}

QString LocalSite::nameOf(const QUrl& url) const {
    const QString address = url.toString();
    if (!m_authority.isEmpty() && address.startsWith(QStringLiteral("http://%1/").arg(m_authority))) {
        const std::filesystem::path file = m_server.fileOf(url.path(QUrl::FullyDecoded).toStdString());
        if (!file.empty()) {
            return QString::fromLocal8Bit(file.c_str());
        }
    }
    return address;
}

} // namespace tv
