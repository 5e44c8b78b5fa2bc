/**
 * An entry of the timeline as one line for people.
 */
#ifndef TIMELINETEXT_H
#define TIMELINETEXT_H

#include "timeline/TimelineEntry.h"

namespace tv {

/** @return what happened, without time, object and kind */
QString timelineText(const TimelineEntry& entry);

} // namespace tv

#endif
