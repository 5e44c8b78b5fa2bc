/**
 * One thing that happened in the television: to a page, an object of the page, its player, or by the remote control.
 */
#ifndef TIMELINEENTRY_H
#define TIMELINEENTRY_H

#include "base/PlayState.h"

#include <QJsonObject>
#include <QMetaType>
#include <QString>
#include <QVector>
#include <cstdint>

namespace tv {

struct TimelineEntry {
    enum class Kind {
        PAGE,
        CREATED,
        GONE,
        PARAM,
        CALL,
        READ,
        WRITE,
        STATE,
        EVENT,
        COMMAND,
        REPORT,
        REQUEST,
        BUFFER,
        NOTE,
        CONSOLE,
        SCRIPT_ERROR,
        KEY,
        ERROR,
        STALL
    };

    Kind kind = Kind::NOTE;
    int64_t timeUs = 0;  ///< when it began, CLOCK_MONOTONIC; in the timeline since the program's start
    int64_t tookUs = -1; ///< calls and events: how long they ran; else -1
    int object = 0;      ///< number of the plug-in object, from 1; 0: of none
    int player = -1;     ///< handle of the player; -1: of none
    QString text;        ///< one line for people
    QJsonObject fields;  ///< what docs/timeline.md says of the kind
};

using TimelineEntries = QVector<TimelineEntry>;

constexpr int timelineKindCount = static_cast<int>(TimelineEntry::Kind::STALL) + 1;

/** @return the kind's word in the trace and in the file */
const char* timelineKindName(TimelineEntry::Kind kind);

/** @return the entry as docs/timeline.md has it */
QJsonObject timelineJson(const TimelineEntry& entry);

} // namespace tv

#endif
