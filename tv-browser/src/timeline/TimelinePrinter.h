/** The timeline on standard output, for --trace. */
#ifndef TIMELINEPRINTER_H
#define TIMELINEPRINTER_H

#include "timeline/TimelineEntry.h"

namespace tv {

/** Prints a line for each entry: seconds since the start, whose entry it is, its kind, what happened. */
void printTrace(const TimelineEntries& entries);

} // namespace tv

#endif
