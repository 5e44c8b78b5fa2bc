#include "npapi/page/PageCallTrace.h"

#include "npapi/instance/PluginInstance.h"
#include "npapi/instance/PluginTrace.h"
#include "npapi/page/PageFunction.h"

#include <string.h>

namespace {

/// What a listener was told: the one value of the event object that its type of event sets.
std::string describeEvent(PluginInstance& instance, const char* listener, const NPVariant& event) {
    for (const HbbTVListenerProperty* entry = instance.module().listenerProperties; entry->listener; ++entry) {
        NPVariant value;
        VOID_TO_NPVARIANT(value);
        if (!strcmp(entry->listener, listener) && NPN_GetProperty(instance.npp(), NPVARIANT_TO_OBJECT(event),
                                                                  NPN_GetStringIdentifier(entry->property), &value)) {
            const std::string text = std::string("({") + entry->property + ": " + describeVariant(value) + "})";
            NPN_ReleaseVariantValue(&value);
            return text;
        }
    }
    return describeArguments(&event, 1);
}

} // namespace

PageCallTrace::PageCallTrace(NPP npp, const NPObject* function, const NPVariant* args, uint32_t argCount)
    : m_instance(0), m_start(0) {
    PluginInstance* instance = pluginTraceIsOn() ? PluginInstance::of(npp) : nullptr;
    if (!instance) {
        return;
    }
    instance->traceState();
    const char* name = pageFunctionName(function) ? pageFunctionName(function) : "function";
    m_text = name + (argCount == 1 && NPVARIANT_IS_OBJECT(args[0]) ? describeEvent(*instance, name, args[0])
                                                                   : describeArguments(args, argCount));
    m_instance = instance->number();
    m_start = pluginTraceNow();
}

bool PageCallTrace::finished(bool succeeded) const {
    if (m_instance) {
        const int64_t took = pluginTraceNow() - m_start;
        pluginTraceEntry(HBBTV_TRACE_EVENT, m_instance, m_start, took, m_text);
        if (!succeeded) {
            pluginTraceEntry(HBBTV_TRACE_ERROR, m_instance, m_start, took, m_text + " failed");
        }
    }
    return succeeded;
}
