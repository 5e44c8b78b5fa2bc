#include "base/PlayState.h"

#include <array>

namespace tv {

QString playStateName(PlayState state) {
    static constexpr std::array<const char*, playStateCount> names = {"stopped",   "playing",  "paused", "connecting",
                                                                      "buffering", "finished", "error"};
    const auto number = static_cast<int>(state);
    return number < 0 || number >= playStateCount ? QString::number(number)
                                                  : QLatin1String(names[static_cast<size_t>(number)]);
}

QString playbackErrorName(int code) {
    static constexpr std::array<const char*, playbackErrorCount> names = {
        "the format is not supported",
        "cannot connect to the server, or the connection was lost",
        "unidentified error",
        "insufficient resources",
        "the content is corrupt or invalid",
        "the content is not available",
        "the content is not available at this position"};
    return code < 0 || code >= playbackErrorCount ? QStringLiteral("error %1").arg(code)
                                                  : QLatin1String(names[static_cast<size_t>(code)]);
}

} // namespace tv
