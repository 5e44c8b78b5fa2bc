/** Makes the entries of HbbTVPluginTrace.h. Plug-in thread only. */
#ifndef PLUGINTRACE_H
#define PLUGINTRACE_H

#include "HbbTVPluginTrace.h"

#include "npapi/npruntime.h"

#include <memory>

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

/** The values of script's arguments, none without memory. Their strings' bytes stay the variants'. */
class PluginTraceValues {
public:
    PluginTraceValues() : m_count(0) {}
    PluginTraceValues(const NPVariant* args, uint32_t count);

    const HbbTVPluginTraceValue* get() const { return m_values.get(); }
    uint32_t count() const { return m_count; }

private:
    std::unique_ptr<HbbTVPluginTraceValue[]> m_values;
    uint32_t m_count;
};

/** A name in traces, cut when it is long. */
struct TraceName {
    TraceName() : text() {}
    explicit TraceName(NPIdentifier identifier);
    explicit TraceName(const NPString& string);
    explicit TraceName(const char* string);

    char text[64];
};

#endif
