#include "npapi/page/PluginCalls.h"

#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/PluginInstance.h"
#include "npapi/instance/PluginTrace.h"
#include "npapi/page/PageFunction.h"

#include <algorithm>

namespace {

bool invokeTraced(const InstanceRef& instance, const ScriptObject& element, NPIdentifier name, const NPVariant* args,
                  uint32_t argCount, NPVariant* result) {
    PluginInstance* const live = instance.get();
    if (!live) {
        return false;
    }
    const OperationScope scope;
    if (!pluginTraceIsOn()) {
        return live->plugin().invoke(element.get(), name, args, argCount, result);
    }
    const TraceName method(name);
    const PluginTraceValues arguments(args, argCount);
    HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_CALL, instance.number());
    const bool known = live->plugin().invoke(element.get(), name, args, argCount, result);
    entry.call = {method.text, arguments.get(), arguments.count(), pluginTraceValue(*result),
                  pluginTraceNow() - entry.timeUs};
    pluginTraceEntry(entry);
    traceState(instance);
    return known;
}

} // namespace

bool writePlugin(const InstanceRef& instance, NPIdentifier name, const NPVariant& value) {
    if (!instance) {
        return false;
    }
    const OperationScope scope;
    if (pluginTraceIsOn()) {
        pluginTraceProperty(HBBTV_TRACE_WRITE, instance.number(), TraceName(name).text, pluginTraceValue(value));
    }
    ScriptObject kept;
    NPVariant passed = value;
    if (NPVARIANT_IS_OBJECT(value)) {
        kept = keepPageFunction(instance, TraceName(name), NPVARIANT_TO_OBJECT(value));
        passed = kept.borrowed();
    }
    PluginInstance* const live = instance.get();
    return live && live->plugin().setProperty(name, &passed);
}

// A function of the page among the arguments, as of addEventListener, is kept under the name before it.
bool invokePlugin(const InstanceRef& instance, const ScriptObject& element, NPIdentifier name, const NPVariant* args,
                  uint32_t argCount, NPVariant* result) {
    constexpr uint32_t MOST_ARGUMENTS = 3;
    if (argCount < 2 || argCount > MOST_ARGUMENTS || !NPVARIANT_IS_STRING(args[0]) || !NPVARIANT_IS_OBJECT(args[1])) {
        return invokeTraced(instance, element, name, args, argCount, result);
    }
    const TraceName type(NPVARIANT_TO_STRING(args[0]));
    const ScriptObject kept = keepPageFunction(instance, type, NPVARIANT_TO_OBJECT(args[1]));
    NPVariant values[MOST_ARGUMENTS];
    std::copy(args, args + argCount, values);
    values[1] = kept.borrowed();
    return invokeTraced(instance, element, name, values, argCount, result);
}
