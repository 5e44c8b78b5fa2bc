#include "npapi/page/PageCallTrace.h"

#include "npapi/instance/PluginInstance.h"
#include "npapi/instance/PluginTrace.h"
#include "npapi/page/PageFunction.h"

PageCallTrace::PageCallTrace(NPP npp, const NPObject* function, const NPVariant* args, uint32_t argCount)
    : m_instance(0), m_start(0), m_property(nullptr) {
    PluginInstance* instance = pluginTraceIsOn() ? PluginInstance::of(npp) : nullptr;
    if (!instance) {
        return;
    }
    instance->traceState();
    m_name = pageFunctionName(function) ? pageFunctionName(function) : "function";
    if (argCount != 1 || !NPVARIANT_IS_OBJECT(args[0]) || !readEvent(*instance, args[0])) {
        m_arguments = pluginTraceValues(args, argCount);
    }
    m_instance = instance->number();
    m_start = pluginTraceNow();
}

/// Reads the one property of the event object that its type of event sets. @return false when it has none
bool PageCallTrace::readEvent(PluginInstance& instance, const NPVariant& event) {
    for (const HbbTVListenerProperty* entry = instance.module().listenerProperties; entry->listener; ++entry) {
        NPVariant value;
        VOID_TO_NPVARIANT(value);
        if (m_name != entry->listener || !NPN_GetProperty(instance.npp(), NPVARIANT_TO_OBJECT(event),
                                                          NPN_GetStringIdentifier(entry->property), &value)) {
            continue;
        }
        m_property = entry->property;
        m_arguments.push_back(pluginTraceValue(value));
        if (NPVARIANT_IS_STRING(value)) {
            const NPString& text = NPVARIANT_TO_STRING(value);
            m_text.assign(text.UTF8Characters, text.UTF8Length);
            m_arguments.back() = pluginTraceString(m_text.data(), m_text.size());
        }
        NPN_ReleaseVariantValue(&value);
        return true;
    }
    return false;
}

bool PageCallTrace::finished(bool succeeded) const {
    if (m_instance) {
        HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_EVENT, m_instance);
        const int64_t took = entry.timeUs - m_start;
        entry.timeUs = m_start;
        entry.event = {m_name.c_str(), m_property, m_arguments.data(), static_cast<uint32_t>(m_arguments.size()), took};
        pluginTraceEntry(entry);
        if (!succeeded) {
            entry.kind = HBBTV_TRACE_ERROR;
            pluginTraceEntry(entry);
        }
    }
    return succeeded;
}
