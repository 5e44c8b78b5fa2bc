#include "timeline/TimelineEntry.h"

#include <array>

namespace tv {

const char* timelineKindName(TimelineEntry::Kind kind) {
    static constexpr std::array<const char*, timelineKindCount> names = {
        "page",   "created", "gone",   "param", "call",    "read",         "write", "state", "event", "command",
        "report", "request", "buffer", "note",  "console", "script-error", "key",   "error", "stall"};
    return names[static_cast<size_t>(kind)];
}

QString playStateName(int state) {
    static constexpr std::array<const char*, 7> names = {"stopped",   "playing",  "paused", "connecting",
                                                         "buffering", "finished", "error"};
    return state < 0 || state >= static_cast<int>(names.size()) ? QString::number(state)
                                                                : QLatin1String(names[static_cast<size_t>(state)]);
}

QString playbackErrorName(int code) {
    static constexpr std::array<const char*, 7> names = {"the format is not supported",
                                                         "no connection to the server, or it was lost",
                                                         "an error of no known kind",
                                                         "the television lacks the resources",
                                                         "the content is corrupt or invalid",
                                                         "the content is not available",
                                                         "the content is not available at this position"};
    return code < 0 || code >= static_cast<int>(names.size()) ? QStringLiteral("error %1").arg(code)
                                                              : QLatin1String(names[static_cast<size_t>(code)]);
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
