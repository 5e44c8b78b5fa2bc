/** Makes the entries of HbbTVPluginTrace.h. Plug-in thread only. */
#ifndef PLUGINTRACE_H
#define PLUGINTRACE_H

#include "HbbTVPluginTrace.h"

#include "npapi/npruntime.h"

#include <string>
#include <vector>

/** @return true while an observer is set; the functions that follow are called only then */
bool pluginTraceIsOn();

/** @return CLOCK_MONOTONIC in microseconds; later than what it returned before, also within one microsecond */
int64_t pluginTraceNow();

/** Passes an entry to the observer. */
void pluginTraceEntry(const HbbTVPluginTraceEntry& entry);

/** @return an entry that happens now, its union not yet set */
HbbTVPluginTraceEntry pluginTraceEntryNow(HbbTVPluginTraceKind kind, int instance);

/** Traces a param, read or write. */
void pluginTraceProperty(HbbTVPluginTraceKind kind, int instance, const char* name, const HbbTVPluginTraceValue& value);

/** @return the value; a string's bytes stay the variant's */
HbbTVPluginTraceValue pluginTraceValue(const NPVariant& value);

/** @return the string, whose bytes stay the caller's */
HbbTVPluginTraceValue pluginTraceString(const char* bytes, size_t length);

/** @return the values of script's arguments; their strings' bytes stay the variants' */
std::vector<HbbTVPluginTraceValue> pluginTraceValues(const NPVariant* args, uint32_t count);

/** @return the name of an identifier */
std::string describeIdentifier(NPIdentifier identifier);

#endif
