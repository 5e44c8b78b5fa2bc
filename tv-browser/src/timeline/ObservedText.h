/**
 * What plug-in objects and players report, as text for people and for the timeline's file.
 */
#ifndef OBSERVEDTEXT_H
#define OBSERVEDTEXT_H

#include "timeline/TimelineDetails.h"

namespace tv {

/** @return the kind's word in the trace and in the file */
const char* timelineKindName(TimelineKind kind);

/** Strings longer than this many bytes are cut; so are lists of arguments. */
constexpr size_t longestText = 500;

/** @return a value as script would write it; objects and functions as "object" */
QString valueText(const ScriptValue& value);

/** @return "a, b" */
QString argumentsText(const timeline::Call& call);

/** @return "a, b", or "{property: a}" for an event object */
QString argumentsText(const timeline::Event& event);

/** @return for example "SetSource" */
QString commandName(const timeline::Command& command);

/** @return the arguments as they are read best, for example "0,0 1280x720" */
QString commandArguments(const timeline::Command& command);

/** @return for example "PLAYING" */
QString reportName(const timeline::Report& report);

/** @return true when the report's code means something */
bool hasCode(const timeline::Report& report);

/** @return a player's text on one line */
QString playerText(const std::string& text);

} // namespace tv

#endif
