#include "npapi/page/PageCallTrace.h"

#include "npapi/instance/PluginInstance.h"
#include "npapi/instance/PluginTrace.h"
#include "npapi/page/PageFunction.h"

PageCallTrace::PageCallTrace(const InstanceRef& instance, const NPObject* function, const NPVariant* args,
                             uint32_t argCount)
    : m_instance(0), m_start(0), m_property(nullptr) {
    if (!pluginTraceIsOn() || !instance) {
        return;
    }
    const char* const name = pageFunctionName(function);
    m_name = name ? name : "function";
    traceState(instance);
    if (argCount != 1 || !NPVARIANT_IS_OBJECT(args[0]) || !readEvent(instance, args[0])) {
        m_arguments = pluginTraceValues(args, argCount);
    }
    m_instance = instance.number();
    m_start = pluginTraceNow();
}

/// Reads the one property of the event object that its type of event sets. @return false when it has none
bool PageCallTrace::readEvent(const InstanceRef& instance, const NPVariant& event) {
    const ScriptObject object = ScriptObject::to(NPVARIANT_TO_OBJECT(event));
    const HbbTVListenerProperty* entry = instance ? instance.get()->module().listenerProperties : nullptr;
    while (entry && entry->listener && m_name != entry->listener) {
        ++entry;
    }
    const ScriptValue value = entry && entry->listener ? instance.property(object, entry->property) : ScriptValue();
    if (!value) {
        return false;
    }
    m_property = entry->property;
    m_arguments.push_back(pluginTraceValue(value.get()));
    if (value.isString()) {
        const NPString& text = NPVARIANT_TO_STRING(value.get());
        m_text.assign(text.UTF8Characters, text.UTF8Length);
        m_arguments.back() = pluginTraceString(m_text.data(), m_text.size());
    }
    return true;
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
