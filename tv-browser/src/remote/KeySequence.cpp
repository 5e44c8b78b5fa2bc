#include "remote/KeySequence.h"

#include "base/Seconds.h"

#include <QStringList>
#include <optional>

namespace tv {

namespace {

constexpr double tapSeconds = 0.05;

std::optional<KeyStep> parseStep(const QString& text) {
    const QLatin1Char separator(':');
    const QString name = text.section(separator, 0, 0).trimmed();
    const std::optional<double> seconds = parseSeconds(text.section(separator, 1));
    if (text.contains(separator) && !seconds) {
        return std::nullopt;
    }
    if (name.compare(QLatin1String("wait"), Qt::CaseInsensitive) == 0) {
        return seconds ? std::optional<KeyStep>({nullptr, nullptr, *seconds}) : std::nullopt;
    }
    const RemoteKey* key = remoteKeyNamed(name);
    const DeskKey* deskKey = key ? nullptr : deskKeyNamed(name);
    if (!key && !deskKey) {
        return std::nullopt;
    }
    return KeyStep{key, deskKey, seconds.value_or(tapSeconds)};
}

} // namespace

Result<QList<KeyStep>, QString> parseKeySequence(const QString& text) {
    QList<KeyStep> steps;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const std::optional<KeyStep> step = parseStep(part);
        if (!step) {
            return Failure{part.trimmed()};
        }
        steps.append(*step);
    }
    return steps;
}

} // namespace tv
