/**
 * What the observers of plug-in objects and players report, as entries of the timeline.
 */
#ifndef OBSERVEDENTRY_H
#define OBSERVEDENTRY_H

#include "HbbTVPluginTrace.h"
#include "media_trace.h"
#include "timeline/TimelineEntry.h"

namespace tv {

/** @return a copy, of which nothing is formatted yet */
TimelineEntry observedEntry(const HbbTVPluginTraceEntry& observed);

/** @return a copy, of which nothing is formatted yet */
TimelineEntry observedEntry(const MediaTraceEntry& observed);

} // namespace tv

#endif
