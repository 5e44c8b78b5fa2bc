#include "npapi/instance/PluginInstance.h"

#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/PluginTrace.h"

#include <new>
#include <string.h>

namespace {

/// What a call has done may be another play state, of which a page need not hear.
void traceStateOf(NPP npp) {
    traceState(InstanceRef::of(npp));
}

} // namespace

PluginInstance::PluginInstance(const HbbTVModule& module, NPP npp)
    : recordState(PageRecordState::NotDue), pageFunctions(nullptr), windowReports(), tracedState(0), m_module(module),
      m_ref(InstanceRef::to(this, npp)), m_calls(npp, traceStateOf), m_plugin(nullptr) {}

PluginInstance::~PluginInstance() {
    m_ref.instanceGoes();
    scriptObject = ScriptObject();
    delete m_plugin;
    m_element = ScriptObject();
}

InstanceRef PluginInstance::make(const HbbTVModule& module, NPP npp, NPMIMEType type) {
    PluginInstance* const instance = new (std::nothrow) PluginInstance(module, npp);
    if (!instance || !instance->m_ref) {
        delete instance;
        return InstanceRef();
    }
    const InstanceRef ref = instance->m_ref;
    if (pluginTraceIsOn()) {
        HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_CREATED, ref.number());
        entry.created = {type ? type : ""};
        pluginTraceEntry(entry);
    }
    instance->m_plugin = module.create(nullptr);
    if (!instance->m_plugin) {
        end(ref);
    }
    return ref;
}

void PluginInstance::end(const InstanceRef& instance) {
    delete instance.get();
    if (pluginTraceIsOn()) {
        pluginTraceEntry(pluginTraceEntryNow(HBBTV_TRACE_DESTROYED, instance.number()));
    }
}

bool PluginInstance::start(const InstanceRef& instance, NPMIMEType type, uint16_t mode, int16_t argc, char* argn[],
                           char* argv[], NPSavedData* saved) {
    NPObject* object = nullptr;
    const NPError result = browserFunctions().getvalue(instance.npp(), NPNVPluginElementNPObject, &object);
    ScriptObject element(result == NPERR_NO_ERROR ? object : nullptr);
    PluginInstance* const made = instance.get();
    if (!made) {
        return false;
    }
    made->m_element = std::move(element);
    if (!made->plugin().initialize(type, instance.npp(), mode, argc, argn, argv, saved)) {
        return false;
    }
    for (int16_t i = 0; i < argc; ++i) {
        if (!argn[i]) {
            continue;
        }
        if (pluginTraceIsOn() && argv[i]) {
            pluginTraceProperty(HBBTV_TRACE_PARAM, instance.number(), argn[i],
                                pluginTraceString(argv[i], strlen(argv[i])));
        }
        if (PluginInstance* const live = instance.get()) {
            live->plugin().setParam(argn[i], argv[i]);
        }
    }
    if (PluginInstance* const live = instance.get()) {
        live->recordState = PageRecordState::Pending;
    }
    return static_cast<bool>(instance);
}

ScriptValue readPluginProperty(const InstanceRef& instance, const char* name) {
    ScriptValue value;
    if (PluginInstance* const live = instance.get()) {
        value.answered(live->plugin().getProperty(NPN_GetStringIdentifier(name), value.result()));
    }
    return value;
}

void traceState(const InstanceRef& instance) {
    if (!pluginTraceIsOn() || !instance || !instance.get()->module().stateProperty) {
        return;
    }
    const ScriptValue value = readPluginProperty(instance, instance.get()->module().stateProperty);
    PluginInstance* const live = instance.get();
    if (live && NPVARIANT_IS_INT32(value.get()) && NPVARIANT_TO_INT32(value.get()) != live->tracedState) {
        live->tracedState = NPVARIANT_TO_INT32(value.get());
        HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_STATE, instance.number());
        entry.state = {live->tracedState};
        pluginTraceEntry(entry);
    }
}
