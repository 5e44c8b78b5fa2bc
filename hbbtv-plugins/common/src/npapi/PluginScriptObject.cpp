#include "PluginScriptObject.h"

#include "PluginInstance.h"
#include "PluginTrace.h"

#include <string.h>

// Script that a plug-in operation calls may delete the instance: nothing below touches it after such an operation.

namespace {

PluginInstance* instanceOf(NPObject* object) {
    return reinterpret_cast<PluginScriptObject*>(object)->instance;
}

NPObject* allocate(NPP, NPClass*) {
    void* memory = NPN_MemAlloc(sizeof(PluginScriptObject));
    if (memory) {
        memset(memory, 0, sizeof(PluginScriptObject));
    }
    return static_cast<NPObject*>(memory);
}

void deallocate(NPObject* object) {
    NPN_MemFree(object);
}

bool hasMethod(NPObject* object, NPIdentifier name) {
    PluginInstance* instance = instanceOf(object);
    return instance && instance->plugin()->hasMethod(name);
}

/// The page registers or removes a listener: keeps its name for traces.
void rememberListener(PluginInstance& instance, const std::string& method, const NPVariant* args, uint32_t argCount) {
    if (argCount < 2 || !NPVARIANT_IS_STRING(args[0]) || !NPVARIANT_IS_OBJECT(args[1])) {
        return;
    }
    const NPString& type = NPVARIANT_TO_STRING(args[0]);
    const std::string name(type.UTF8Characters, type.UTF8Length);
    if (method == "addEventListener") {
        instance.pageFunctions().remember(name, NPVARIANT_TO_OBJECT(args[1]));
    } else if (method == "removeEventListener") {
        instance.pageFunctions().remember(name, nullptr);
    }
}

bool invokeTraced(PluginInstance& instance, NPObject* element, NPIdentifier name, const NPVariant* args,
                  uint32_t argCount, NPVariant* result) {
    const int number = instance.number();
    const std::string method = describeIdentifier(name);
    const std::string call = method + describeArguments(args, argCount);
    rememberListener(instance, method, args, argCount);
    const int64_t start = pluginTraceNow();
    const bool known = instance.plugin()->invoke(element, name, args, argCount, result);
    pluginTraceEntry(HBBTV_TRACE_CALL, number, start, pluginTraceNow() - start,
                     call + " -> " + describeVariant(*result));
    return known;
}

bool invoke(NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    PluginInstance* instance = instanceOf(object);
    if (!instance) {
        return false;
    }
    VOID_TO_NPVARIANT(*result);
    // A DOM event raised on the plug-in's own script object reaches nobody; on the element it does.
    NPObject* element = nullptr;
    if (NPN_GetValue(instance->npp(), NPNVPluginElementNPObject, &element) != NPERR_NO_ERROR || !element) {
        element = NPN_RetainObject(object);
    }
    const bool known = pluginTraceIsOn() ? invokeTraced(*instance, element, name, args, argCount, result)
                                         : instance->plugin()->invoke(element, name, args, argCount, result);
    NPN_ReleaseObject(element);
    return known;
}

bool invokeDefault(NPObject*, const NPVariant*, uint32_t, NPVariant*) {
    return false;
}

bool hasProperty(NPObject* object, NPIdentifier name) {
    PluginInstance* instance = instanceOf(object);
    return instance && instance->plugin()->hasProperty(name);
}

bool getProperty(NPObject* object, NPIdentifier name, NPVariant* result) {
    PluginInstance* instance = instanceOf(object);
    VOID_TO_NPVARIANT(*result);
    // Asked again because the engine remembers an earlier true for all objects of this class.
    if (!instance || !instance->plugin()->hasProperty(name)) {
        return false;
    }
    const bool found = instance->plugin()->getProperty(name, result);
    if (pluginTraceIsOn()) {
        pluginTraceEntry(HBBTV_TRACE_READ, instance->number(), pluginTraceNow(), 0,
                         describeIdentifier(name) + " -> " + (found ? describeVariant(*result) : "no value"));
    }
    return found;
}

bool setProperty(NPObject* object, NPIdentifier name, const NPVariant* value) {
    PluginInstance* instance = instanceOf(object);
    return instance && instance->write(name, *value);
}

NPClass scriptClass = {NP_CLASS_STRUCT_VERSION,
                       allocate,
                       deallocate,
                       nullptr,
                       hasMethod,
                       invoke,
                       invokeDefault,
                       hasProperty,
                       getProperty,
                       setProperty,
                       nullptr,
                       nullptr,
                       nullptr};

} // namespace

PluginScriptObject* createPluginScriptObject(PluginInstance& instance) {
    NPObject* object = NPN_CreateObject(instance.npp(), &scriptClass);
    if (!object) {
        return nullptr;
    }
    PluginScriptObject* scriptObject = reinterpret_cast<PluginScriptObject*>(object);
    scriptObject->instance = &instance;
    return scriptObject;
}
