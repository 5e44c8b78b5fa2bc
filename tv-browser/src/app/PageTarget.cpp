#include "app/PageTarget.h"

#include <QFileInfo>

namespace tv {

bool isPageAddress(const QUrl& url) {
    return url.isValid() && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

QString pageTargetProblem(const QString& target) {
    if (isPageAddress(QUrl(target))) {
        return {};
    }
    const QFileInfo file(target);
    if (!file.exists()) {
        return QStringLiteral("%1 is neither an http or https address nor a file or folder that exists").arg(target);
    }
    if (file.isDir() && !QFileInfo::exists(file.filePath() + QStringLiteral("/index.html"))) {
        return QStringLiteral("the folder %1 has no index.html; name a page in it").arg(target);
    }
    return {};
}

} // namespace tv
