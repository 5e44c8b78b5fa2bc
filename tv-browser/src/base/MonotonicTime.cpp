#include "base/MonotonicTime.h"

#include <ctime>

namespace tv {

int64_t monotonicUs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1000;
}

} // namespace tv
