#include "timeline/TimelineEntry.h"

#include <array>

namespace tv {

const char* timelineKindName(TimelineEntry::Kind kind) {
    static constexpr std::array<const char*, timelineKindCount> names = {
        "page",   "created", "gone",   "param", "call",    "read",         "write", "state", "event", "command",
        "report", "request", "buffer", "note",  "console", "script-error", "key",   "error", "stall"};
    return names[static_cast<size_t>(kind)];
}

QJsonObject timelineJson(const TimelineEntry& entry) {
    QJsonObject json = entry.fields;
    json[QStringLiteral("time")] = static_cast<qint64>(entry.timeUs);
    json[QStringLiteral("kind")] = QLatin1String(timelineKindName(entry.kind));
    json[QStringLiteral("object")] = entry.object;
    if (entry.player >= 0) {
        json[QStringLiteral("player")] = entry.player;
    }
    if (entry.tookUs >= 0) {
        json[QStringLiteral("took")] = static_cast<qint64>(entry.tookUs);
    }
    return json;
}

} // namespace tv
