#include "npapi/page/PluginScriptObject.h"

#include "npapi/instance/PluginInstance.h"
#include "npapi/instance/PluginTrace.h"
#include "npapi/page/CollectionArray.h"
#include "npapi/page/PageFunction.h"
#include "npapi/page/PageRecord.h"
#include "npapi/page/PluginCalls.h"

#include <new>

// The functions below copy the reference to the instance before they call anything: with the instance the engine may
// give up the script object.

namespace {

/// Counted by the engine.
struct PluginScriptObject {
    NPObject object;
    InstanceRef instance;
};

InstanceRef instanceOf(NPObject* object) {
    return reinterpret_cast<PluginScriptObject*>(object)->instance;
}

NPObject* allocate(NPP, NPClass*) {
    void* const memory = NPN_MemAlloc(sizeof(PluginScriptObject));
    return memory ? &(new (memory) PluginScriptObject{{}, {}})->object : nullptr;
}

void deallocate(NPObject* object) {
    reinterpret_cast<PluginScriptObject*>(object)->~PluginScriptObject();
    NPN_MemFree(object);
}

bool hasMethod(NPObject* object, NPIdentifier name) {
    const InstanceRef instance = instanceOf(object);
    return instance && instance.get()->plugin().hasMethod(name);
}

bool invoke(NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    const InstanceRef instance = instanceOf(object);
    if (!instance) {
        return false;
    }
    VOID_TO_NPVARIANT(*result);
    // So that play() and setFullScreen() know the element's rectangle when a page calls them at once.
    settleWindow(instance);
    // A DOM event raised on the plug-in's own script object reaches nobody; on the element it does.
    ScriptObject element = instance.element();
    if (!element && instance) {
        element = ScriptObject::to(object);
    }
    recordListener(instance, name, args, argCount);
    const bool known = invokePlugin(instance, element, name, args, argCount, result);
    if (known) {
        presentAsArray(instance, result);
    }
    // A page that ends the instance inside the call gets undefined, and no exception.
    return known || !instance;
}

bool invokeDefault(NPObject*, const NPVariant*, uint32_t, NPVariant*) {
    return false;
}

bool hasProperty(NPObject* object, NPIdentifier name) {
    const InstanceRef instance = instanceOf(object);
    return instance && instance.get()->plugin().hasProperty(name);
}

bool getProperty(NPObject* object, NPIdentifier name, NPVariant* result) {
    const InstanceRef instance = instanceOf(object);
    VOID_TO_NPVARIANT(*result);
    // Asked again because the engine remembers an earlier true for all objects of this class.
    if (!instance || !instance.get()->plugin().hasProperty(name)) {
        return false;
    }
    ScriptValue value;
    value.answered(instance.get()->plugin().getProperty(name, value.result()));
    const bool found = static_cast<bool>(value);
    if (value.isObject()) {
        const ScriptObject kept = value.takeObject();
        *result = pageFunctionBehind(instance, kept.get()).releaseValue();
    } else {
        *result = value.release();
    }
    if (pluginTraceIsOn() && instance) {
        const HbbTVPluginTraceValue none = {};
        pluginTraceProperty(HBBTV_TRACE_READ, instance.number(), TraceName(name).text,
                            found ? pluginTraceValue(*result) : none);
    }
    return found;
}

bool setProperty(NPObject* object, NPIdentifier name, const NPVariant* value) {
    const InstanceRef instance = instanceOf(object);
    recordProperty(instance, name, *value);
    return writePlugin(instance, name, *value);
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

ScriptObject scriptObjectOf(const InstanceRef& instance) {
    PluginInstance* live = instance.get();
    // While the record is read it would answer in the place of the element, whose own properties are asked for.
    if (!live || live->recordState == PageRecordState::Reading) {
        return ScriptObject();
    }
    if (!live->scriptObject) {
        ScriptObject made(NPN_CreateObject(instance.npp(), &scriptClass));
        live = instance.get();
        if (!made || !live) {
            return ScriptObject();
        }
        reinterpret_cast<PluginScriptObject*>(made.get())->instance = instance;
        live->scriptObject = std::move(made);
    }
    return ScriptObject::to(live->scriptObject.get());
}
