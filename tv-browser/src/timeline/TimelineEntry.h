/**
 * One thing that happened in the television: to a page, an object of the page, its player, or by the remote control.
 */
#ifndef TIMELINEENTRY_H
#define TIMELINEENTRY_H

#include "timeline/TimelineDetails.h"

#include <QMetaType>
#include <QVector>

namespace tv {

struct TimelineEntry {
    int64_t timeUs = 0;  ///< when it began, CLOCK_MONOTONIC; in the timeline since the program's start
    int64_t tookUs = -1; ///< calls and events: how long they ran; else -1
    int object = 0;      ///< number of the plug-in object, from 1; 0: of none
    int player = -1;     ///< handle of the player; -1: of none
    timeline::Details details;

    TimelineKind kind() const {
        return std::visit([](const auto& one) { return one.kind; }, details);
    }

    /** @return the details when the entry is of that kind, for example `as<timeline::Call>()`; else null */
    template <typename Detail> const Detail* as() const { return std::get_if<Detail>(&details); }
};

using TimelineEntries = QVector<TimelineEntry>;

} // namespace tv

#endif
