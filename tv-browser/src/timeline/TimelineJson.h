/**
 * An entry of the timeline for programs.
 */
#ifndef TIMELINEJSON_H
#define TIMELINEJSON_H

#include "timeline/TimelineEntry.h"

#include <QJsonObject>

namespace tv {

/** @return the entry as docs/timeline.md has it */
QJsonObject timelineJson(const TimelineEntry& entry);

} // namespace tv

#endif
