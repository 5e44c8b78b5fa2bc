#include "base/Seconds.h"

namespace tv {

std::optional<double> parseSeconds(const QString& text) {
    constexpr double longest = 1e6;
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    // Not a comparison that NaN passes.
    return isNumber && seconds >= 0 && seconds <= longest ? std::optional<double>(seconds) : std::nullopt;
}

int toMilliseconds(double seconds) {
    return static_cast<int>(seconds * 1000);
}

} // namespace tv
