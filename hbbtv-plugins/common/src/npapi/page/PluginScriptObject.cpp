#include "npapi/page/PluginScriptObject.h"

#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/PluginInstance.h"
#include "npapi/instance/PluginTrace.h"
#include "npapi/page/CollectionArray.h"
#include "npapi/page/PageFunction.h"
#include "npapi/page/PageRecord.h"

#include <algorithm>
#include <string.h>

// Script that a plug-in operation calls may delete the instance, and so may the layout that engines do for an access to
// the element: nothing below touches it after either without asking again.

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

bool invokeTraced(PluginInstance& instance, NPObject* element, NPIdentifier name, const NPVariant* args,
                  uint32_t argCount, NPVariant* result) {
    const OperationScope scope;
    if (!pluginTraceIsOn()) {
        return instance.plugin()->invoke(element, name, args, argCount, result);
    }
    const int number = instance.number();
    const std::string method = describeIdentifier(name);
    const std::vector<HbbTVPluginTraceValue> arguments = pluginTraceValues(args, argCount);
    HbbTVPluginTraceEntry entry = pluginTraceEntryNow(HBBTV_TRACE_CALL, number);
    const bool known = instance.plugin()->invoke(element, name, args, argCount, result);
    entry.call = {method.c_str(), arguments.data(), argCount, pluginTraceValue(*result),
                  pluginTraceNow() - entry.timeUs};
    pluginTraceEntry(entry);
    if (PluginInstance* alive = PluginInstance::withNumber(number)) {
        alive->traceState();
    }
    return known;
}

bool invoke(NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    PluginInstance* instance = instanceOf(object);
    if (!instance) {
        return false;
    }
    VOID_TO_NPVARIANT(*result);
    // So that play() and setFullScreen() know the element's rectangle when a page calls them at once.
    instance->settlePlace();
    instance = instanceOf(object);
    if (!instance) {
        return false;
    }
    // A DOM event raised on the plug-in's own script object reaches nobody; on the element it does.
    NPObject* element = instance->pageObject(NPNVPluginElementNPObject);
    if (!element) {
        element = NPN_RetainObject(object);
    }
    recordListener(*instance, name, args, argCount);
    instance = instanceOf(object);
    const bool known = instance && invokePlugin(*instance, element, name, args, argCount, result);
    NPN_ReleaseObject(element);
    if (known && instanceOf(object)) {
        presentAsArray(instanceOf(object)->npp(), result);
    }
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
    if (found && NPVARIANT_IS_OBJECT(*result)) {
        NPObject* kept = NPVARIANT_TO_OBJECT(*result);
        NPObject* function = pageFunctionBehind(instance->npp(), kept);
        NPN_ReleaseObject(kept);
        if (function) {
            OBJECT_TO_NPVARIANT(function, *result);
        } else {
            NULL_TO_NPVARIANT(*result);
        }
    }
    if (pluginTraceIsOn() && instanceOf(object)) {
        const HbbTVPluginTraceValue none = {};
        pluginTraceProperty(HBBTV_TRACE_READ, instanceOf(object)->number(), describeIdentifier(name).c_str(),
                            found ? pluginTraceValue(*result) : none);
    }
    return found;
}

bool setProperty(NPObject* object, NPIdentifier name, const NPVariant* value) {
    PluginInstance* instance = instanceOf(object);
    if (!instance) {
        return false;
    }
    recordProperty(*instance, describeIdentifier(name), *value);
    instance = instanceOf(object);
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

// A function of the page among the arguments, as of addEventListener, is kept under the name before it.
bool invokePlugin(PluginInstance& instance, NPObject* element, NPIdentifier name, const NPVariant* args,
                  uint32_t argCount, NPVariant* result) {
    constexpr uint32_t MOST_ARGUMENTS = 3;
    if (argCount < 2 || argCount > MOST_ARGUMENTS || !NPVARIANT_IS_STRING(args[0]) || !NPVARIANT_IS_OBJECT(args[1])) {
        return invokeTraced(instance, element, name, args, argCount, result);
    }
    const NPString& type = NPVARIANT_TO_STRING(args[0]);
    NPVariant kept[MOST_ARGUMENTS];
    std::copy(args, args + argCount, kept);
    OBJECT_TO_NPVARIANT(keepPageFunction(instance, std::string(type.UTF8Characters, type.UTF8Length).c_str(),
                                         NPVARIANT_TO_OBJECT(args[1])),
                        kept[1]);
    const bool known = invokeTraced(instance, element, name, kept, argCount, result);
    NPN_ReleaseVariantValue(&kept[1]);
    return known;
}

PluginScriptObject* createPluginScriptObject(PluginInstance& instance) {
    NPObject* object = NPN_CreateObject(instance.npp(), &scriptClass);
    if (!object) {
        return nullptr;
    }
    PluginScriptObject* scriptObject = reinterpret_cast<PluginScriptObject*>(object);
    scriptObject->instance = &instance;
    return scriptObject;
}
