#include "faults/InjectedReport.h"

#include "base/PlayState.h"
#include "base/Seconds.h"
#include "media_injection.h"

#include <QStringList>

namespace tv {

namespace {

constexpr int rightsErrors = 2; // OIPF DAE, onDRMRightsError: 0 no licence, 1 invalid licence

QList<InjectedReport> makeReports() {
    QList<InjectedReport> reports = {
        {QStringLiteral("buffering"), QStringLiteral("buffering begins"), eMEDIA_CALLBACK_BUFFERING, 0, 0},
        {QStringLiteral("playing"), QStringLiteral("playback continues"), eMEDIA_CALLBACK_PLAYING, 0, 0},
        {QStringLiteral("parental=blocked"), QStringLiteral("parental rating: blocked"),
         eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED, 1, 0},
        {QStringLiteral("parental=free"), QStringLiteral("parental rating: not blocked"),
         eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED, 0, 0},
    };
    for (int state = 0; state < rightsErrors; ++state) {
        reports.append({QStringLiteral("rights=%1").arg(state),
                        state == 0 ? QStringLiteral("content rights: no licence")
                                   : QStringLiteral("content rights: invalid licence"),
                        eMEDIA_CALLBACK_DRM_RIGHTS_ERROR, state, 0});
    }
    for (int code = 0; code < playbackErrorCount; ++code) {
        reports.append({QStringLiteral("error=%1").arg(code),
                        QStringLiteral("error %1: %2").arg(code).arg(playbackErrorName(code)), eMEDIA_CALLBACK_ERROR,
                        code, 0});
    }
    return reports;
}

} // namespace

const QList<InjectedReport>& injectableReports() {
    static const QList<InjectedReport> reports = makeReports();
    return reports;
}

Result<QList<InjectedReport>, QString> parseInjectedReports(const QString& text) {
    QList<InjectedReport> parsed;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const std::optional<double> seconds = parseSeconds(part.section(QLatin1Char(':'), 0, 0));
        const QString name = part.section(QLatin1Char(':'), 1).trimmed();
        const QList<InjectedReport>& all = injectableReports();
        const auto found =
            std::find_if(all.begin(), all.end(), [&name](const InjectedReport& report) { return report.name == name; });
        if (!seconds || found == all.end()) {
            return Failure{part.trimmed()};
        }
        parsed.append(*found);
        parsed.last().seconds = *seconds;
    }
    return parsed;
}

bool inject(const InjectedReport& report) {
    return mediaInjectReport(-1, report.event, report.code) != 0;
}

} // namespace tv
