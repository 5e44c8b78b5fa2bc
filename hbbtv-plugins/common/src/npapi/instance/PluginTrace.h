/** Makes the entries of HbbTVPluginTrace.h. Plug-in thread only. */
#ifndef PLUGINTRACE_H
#define PLUGINTRACE_H

#include "HbbTVPluginTrace.h"

#include "npapi/npruntime.h"

#include <string>

/** @return true while somebody observes; the functions below are called only then */
bool pluginTraceIsOn();

/** @return CLOCK_MONOTONIC in microseconds */
int64_t pluginTraceNow();

/** @param startUs when it began. @param tookUs how long it ran, 0 for what has no length */
void pluginTraceEntry(HbbTVPluginTraceKind kind, int instance, int64_t startUs, int64_t tookUs, const std::string& text,
                      const std::string& value = {});

/** @return a value as script would write it; objects as "object" */
std::string describeVariant(const NPVariant& value);

/** @return "(a, b)" */
std::string describeArguments(const NPVariant* args, uint32_t count);

/** @return the name of an identifier */
std::string describeIdentifier(NPIdentifier identifier);

#endif
