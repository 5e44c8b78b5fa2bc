/** The clock of time stamps. */
#ifndef MONOTONICTIME_H
#define MONOTONICTIME_H

#include <cstdint>

namespace tv {

/** @return CLOCK_MONOTONIC in microseconds */
int64_t monotonicUs();

} // namespace tv

#endif
