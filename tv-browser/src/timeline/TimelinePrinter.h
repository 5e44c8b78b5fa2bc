/**
 * The trace on standard output: a line for each entry of the timeline.
 */
#ifndef TIMELINEPRINTER_H
#define TIMELINEPRINTER_H

#include "timeline/TimelineEntry.h"

namespace tv {

/** Prints the entries: seconds since the start, whose they are, what happened. */
void printTrace(const TimelineEntries& entries);

} // namespace tv

#endif
