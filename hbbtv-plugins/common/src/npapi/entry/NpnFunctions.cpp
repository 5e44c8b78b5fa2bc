// The NPN_ functions for engines that pass theirs in a table. A program that defines NPN_ functions of its own, as a
// television's browser does, takes their place. It may leave out those that only the NPAPI module needs: without a
// table they answer that there is nothing. A call for an instance that has gone reaches no engine.
#include "HbbTVExport.h"
#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/InstanceRef.h"
#include "npapi/page/PageCall.h"
#include "npapi/page/PageCallTrace.h"
#include "npapi/page/PageFunction.h"

#include "npapi/npfunctions.h"

namespace {

const NPNetscapeFuncs& functions() {
    return browserFunctions();
}

/// Gives an answer to the plug-in. @return whether there is one
bool give(ScriptValue answer, NPVariant* result) {
    const bool answered = static_cast<bool>(answer);
    if (answered) {
        *result = answer.release();
    } else {
        VOID_TO_NPVARIANT(*result);
    }
    return answered;
}

} // namespace

HBBTV_EXPORT NPError NPN_GetValue(NPP instance, NPNVariable variable, void* value) {
    if (variable != NPNVWindowNPObject && variable != NPNVPluginElementNPObject) {
        return functions().getvalue(instance, variable, value);
    }
    const InstanceRef known = InstanceRef::of(instance);
    NPObject* const object = (variable == NPNVWindowNPObject ? known.window() : known.element()).release();
    *static_cast<NPObject**>(value) = object;
    return object ? NPError{NPERR_NO_ERROR} : NPError{NPERR_GENERIC_ERROR};
}

HBBTV_EXPORT NPError NPN_SetValue(NPP instance, NPPVariable variable, void* value) {
    return functions().setvalue ? functions().setvalue(instance, variable, value) : NPError{NPERR_GENERIC_ERROR};
}

HBBTV_EXPORT void* NPN_MemAlloc(uint32_t size) {
    return functions().memalloc(size);
}

HBBTV_EXPORT void NPN_MemFree(void* ptr) {
    functions().memfree(ptr);
}

HBBTV_EXPORT void NPN_PluginThreadAsyncCall(NPP plugin, void (*func)(void*), void* userData) {
    queueAsyncCall(plugin, func, userData);
}

HBBTV_EXPORT NPObject* NPN_CreateObject(NPP npp, NPClass* aClass) {
    return functions().createobject(npp, aClass);
}

HBBTV_EXPORT NPObject* NPN_RetainObject(NPObject* obj) {
    return obj ? functions().retainobject(obj) : nullptr;
}

HBBTV_EXPORT void NPN_ReleaseObject(NPObject* obj) {
    if (obj) {
        functions().releaseobject(obj);
    }
}

HBBTV_EXPORT void NPN_ReleaseVariantValue(NPVariant* variant) {
    functions().releasevariantvalue(variant);
}

HBBTV_EXPORT NPIdentifier NPN_GetStringIdentifier(const NPUTF8* name) {
    return functions().getstringidentifier(name);
}

HBBTV_EXPORT NPIdentifier NPN_GetIntIdentifier(int32_t intid) {
    return functions().getintidentifier ? functions().getintidentifier(intid) : nullptr;
}

HBBTV_EXPORT bool NPN_IdentifierIsString(NPIdentifier identifier) {
    return !functions().identifierisstring || functions().identifierisstring(identifier);
}

HBBTV_EXPORT NPUTF8* NPN_UTF8FromIdentifier(NPIdentifier identifier) {
    return functions().utf8fromidentifier(identifier);
}

HBBTV_EXPORT int32_t NPN_IntFromIdentifier(NPIdentifier identifier) {
    return functions().intfromidentifier ? functions().intfromidentifier(identifier) : -1;
}

HBBTV_EXPORT bool NPN_Invoke(NPP npp, NPObject* npobj, NPIdentifier methodName, const NPVariant* args,
                             uint32_t argCount, NPVariant* result) {
    const InstanceRef instance = InstanceRef::of(npp);
    const PageArguments arguments(instance, args, argCount);
    ScriptValue answer;
    answer.answered(arguments.areComplete() && instance &&
                    functions().invoke(npp, npobj, methodName, arguments.values(), argCount, answer.result()));
    return give(std::move(answer), result);
}

HBBTV_EXPORT bool NPN_InvokeDefault(NPP npp, NPObject* npobj, const NPVariant* args, uint32_t argCount,
                                    NPVariant* result) {
    const InstanceRef instance = InstanceRef::of(npp);
    const PageCallTrace trace(instance, npobj, args, argCount);
    const ScriptObject function = pageFunctionBehind(instance, npobj);
    return trace.finished(give(callPageFunction(instance, function, args, argCount), result));
}

HBBTV_EXPORT bool NPN_Evaluate(NPP npp, NPObject* npobj, NPString* script, NPVariant* result) {
    ScriptValue answer;
    answer.answered(functions().evaluate && InstanceRef::of(npp) &&
                    functions().evaluate(npp, npobj, script, answer.result()));
    return give(std::move(answer), result);
}

HBBTV_EXPORT bool NPN_GetProperty(NPP npp, NPObject* npobj, NPIdentifier propertyName, NPVariant* result) {
    ScriptValue answer;
    answer.answered(InstanceRef::of(npp) && functions().getproperty(npp, npobj, propertyName, answer.result()));
    return give(std::move(answer), result);
}

HBBTV_EXPORT bool NPN_SetProperty(NPP npp, NPObject* npobj, NPIdentifier propertyName, const NPVariant* value) {
    return functions().setproperty && InstanceRef::of(npp) && functions().setproperty(npp, npobj, propertyName, value);
}
