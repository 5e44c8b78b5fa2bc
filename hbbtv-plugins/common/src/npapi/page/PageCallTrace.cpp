#include "npapi/page/PageCallTrace.h"

#include "npapi/instance/PluginInstance.h"
#include "npapi/page/PageFunction.h"

#include <string.h>

PageCallTrace::PageCallTrace(const InstanceRef& instance, const NPObject* function, const NPVariant* args,
                             uint32_t argCount)
    : m_instance(0), m_start(0), m_property(nullptr) {
    if (!pluginTraceIsOn() || !instance) {
        return;
    }
    const char* const name = pageFunctionName(function);
    m_name = TraceName(name ? name : "function");
    traceState(instance);
    if (argCount != 1 || !NPVARIANT_IS_OBJECT(args[0]) || !readEvent(instance, args[0])) {
        m_arguments = PluginTraceValues(args, argCount);
    }
    m_instance = instance.number();
    m_start = pluginTraceNow();
}

/// Reads the one property of the event object that its type of event sets. @return false when it has none
bool PageCallTrace::readEvent(const InstanceRef& instance, const NPVariant& event) {
    const ScriptObject object = ScriptObject::to(NPVARIANT_TO_OBJECT(event));
    const HbbTVListenerProperty* entry = instance ? instance.get()->module().listenerProperties : nullptr;
    while (entry && entry->listener && strcmp(m_name.text, entry->listener) != 0) {
        ++entry;
    }
    if (!entry || !entry->listener) {
        return false;
    }
    m_value = instance.property(object, entry->property);
    if (!m_value) {
        return false;
    }
    m_property = entry->property;
    m_arguments = PluginTraceValues(&m_value.get(), 1);
    return true;
}

bool PageCallTrace::finished(bool succeeded) const {
    if (m_instance) {
        HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_EVENT, m_instance);
        const int64_t took = entry.timeUs - m_start;
        entry.timeUs = m_start;
        entry.event = {m_name.text, m_property, m_arguments.get(), m_arguments.count(), took};
        pluginTraceEntry(entry);
        if (!succeeded) {
            entry.kind = HBBTV_TRACE_ERROR;
            pluginTraceEntry(entry);
        }
    }
    return succeeded;
}
