/**
 * The trace on standard output: a line for each entry of the timeline.
 */
#ifndef TRACELOG_H
#define TRACELOG_H

#include "timeline/TimelineEntry.h"

/** Prints the entries: seconds since the start, whose they are, what happened. */
void printTrace(const TimelineEntries& entries);

#endif
