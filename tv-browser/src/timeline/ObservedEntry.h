/**
 * What the observers of plug-in objects and players tell, as entries of the timeline.
 */
#ifndef OBSERVEDENTRY_H
#define OBSERVEDENTRY_H

#include "HbbTVPluginTrace.h"
#include "media_trace.h"
#include "timeline/TimelineEntry.h"

namespace tv {

TimelineEntry observedEntry(const HbbTVPluginTraceEntry& observed);

TimelineEntry observedEntry(const MediaTraceEntry& observed);

} // namespace tv

#endif
