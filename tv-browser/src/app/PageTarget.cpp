#include "app/PageTarget.h"

#include <QFileInfo>

namespace tv {

bool isPageAddress(const QUrl& url) {
    return url.isValid() && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

Result<void, QString> checkPageTarget(const QString& target) {
    if (isPageAddress(QUrl(target))) {
        return {};
    }
    const QFileInfo file(target);
    if (!file.exists()) {
        return Failure{
            QStringLiteral("%1 is neither an http or https address nor an existing file or folder").arg(target)};
    }
    if (file.isDir() && !QFileInfo::exists(file.filePath() + QStringLiteral("/index.html"))) {
        return Failure{QStringLiteral("the folder %1 has no index.html; name a page in it").arg(target)};
    }
    return {};
}

} // namespace tv
