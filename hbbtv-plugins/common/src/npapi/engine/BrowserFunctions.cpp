// The NPN_ functions for engines that pass theirs in a table. A program that defines NPN_ functions of its own, as a
// television's browser does, takes their place. It may leave out those that only the NPAPI module needs: without a
// table they answer that there is nothing.
#include "npapi/engine/BrowserFunctions.h"

#include "HbbTVExport.h"
#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/PluginInstance.h"
#include "npapi/page/PageCall.h"
#include "npapi/page/PageCallTrace.h"
#include "npapi/page/PageFunction.h"

#include <algorithm>
#include <string.h>

namespace {

NPNetscapeFuncs functions;

bool complete(const NPNetscapeFuncs& table) {
    return table.memalloc && table.memfree && table.getvalue && table.setvalue && table.getstringidentifier &&
           table.getintidentifier && table.identifierisstring && table.utf8fromidentifier && table.intfromidentifier &&
           table.createobject && table.retainobject && table.releaseobject && table.invoke && table.invokeDefault &&
           table.getproperty && table.setproperty && table.releasevariantvalue && table.pluginthreadasynccall;
}

} // namespace

NPError setBrowserFunctions(const NPNetscapeFuncs* browser) {
    if (!browser) {
        return NPERR_INVALID_FUNCTABLE_ERROR;
    }
    if (browser->version >> 8 > NP_VERSION_MAJOR) {
        return NPERR_INCOMPATIBLE_VERSION_ERROR;
    }
    NPNetscapeFuncs table;
    memset(&table, 0, sizeof table);
    memcpy(&table, browser, std::min<size_t>(browser->size, sizeof table));
    if (!complete(table)) {
        return NPERR_INVALID_FUNCTABLE_ERROR;
    }
    functions = table;
    return NPERR_NO_ERROR;
}

const NPNetscapeFuncs& browserFunctions() {
    return functions;
}

HBBTV_EXPORT NPError NPN_GetValue(NPP instance, NPNVariable variable, void* value) {
    if (variable != NPNVWindowNPObject && variable != NPNVPluginElementNPObject) {
        return functions.getvalue(instance, variable, value);
    }
    PluginInstance* known = PluginInstance::of(instance);
    NPObject* object = known ? known->pageObject(variable) : nullptr;
    *static_cast<NPObject**>(value) = object;
    return object ? NPError{NPERR_NO_ERROR} : NPError{NPERR_GENERIC_ERROR};
}

HBBTV_EXPORT NPError NPN_SetValue(NPP instance, NPPVariable variable, void* value) {
    return functions.setvalue ? functions.setvalue(instance, variable, value) : NPError{NPERR_GENERIC_ERROR};
}

HBBTV_EXPORT void* NPN_MemAlloc(uint32_t size) {
    return functions.memalloc(size);
}

HBBTV_EXPORT void NPN_MemFree(void* ptr) {
    functions.memfree(ptr);
}

HBBTV_EXPORT void NPN_PluginThreadAsyncCall(NPP plugin, void (*func)(void*), void* userData) {
    queueAsyncCall(plugin, func, userData);
}

HBBTV_EXPORT NPObject* NPN_CreateObject(NPP npp, NPClass* aClass) {
    return functions.createobject(npp, aClass);
}

HBBTV_EXPORT NPObject* NPN_RetainObject(NPObject* obj) {
    return obj ? functions.retainobject(obj) : nullptr;
}

HBBTV_EXPORT void NPN_ReleaseObject(NPObject* obj) {
    if (obj) {
        functions.releaseobject(obj);
    }
}

HBBTV_EXPORT void NPN_ReleaseVariantValue(NPVariant* variant) {
    functions.releasevariantvalue(variant);
}

HBBTV_EXPORT NPIdentifier NPN_GetStringIdentifier(const NPUTF8* name) {
    return functions.getstringidentifier(name);
}

HBBTV_EXPORT NPIdentifier NPN_GetIntIdentifier(int32_t intid) {
    return functions.getintidentifier ? functions.getintidentifier(intid) : nullptr;
}

HBBTV_EXPORT bool NPN_IdentifierIsString(NPIdentifier identifier) {
    return !functions.identifierisstring || functions.identifierisstring(identifier);
}

HBBTV_EXPORT NPUTF8* NPN_UTF8FromIdentifier(NPIdentifier identifier) {
    return functions.utf8fromidentifier(identifier);
}

HBBTV_EXPORT int32_t NPN_IntFromIdentifier(NPIdentifier identifier) {
    return functions.intfromidentifier ? functions.intfromidentifier(identifier) : -1;
}

HBBTV_EXPORT bool NPN_Invoke(NPP npp, NPObject* npobj, NPIdentifier methodName, const NPVariant* args,
                             uint32_t argCount, NPVariant* result) {
    const PageArguments arguments(npp, args, argCount);
    return functions.invoke(npp, npobj, methodName, arguments.values(), argCount, result);
}

HBBTV_EXPORT bool NPN_InvokeDefault(NPP npp, NPObject* npobj, const NPVariant* args, uint32_t argCount,
                                    NPVariant* result) {
    const PageCallTrace trace(npp, npobj, args, argCount);
    NPObject* function = pageFunctionBehind(npp, npobj);
    const bool succeeded = function && callPageFunction(npp, function, args, argCount, result);
    NPN_ReleaseObject(function);
    return trace.finished(succeeded);
}

HBBTV_EXPORT bool NPN_Evaluate(NPP npp, NPObject* npobj, NPString* script, NPVariant* result) {
    return functions.evaluate && PluginInstance::of(npp) && functions.evaluate(npp, npobj, script, result);
}

HBBTV_EXPORT bool NPN_GetProperty(NPP npp, NPObject* npobj, NPIdentifier propertyName, NPVariant* result) {
    return functions.getproperty(npp, npobj, propertyName, result);
}

HBBTV_EXPORT bool NPN_SetProperty(NPP npp, NPObject* npobj, NPIdentifier propertyName, const NPVariant* value) {
    return functions.setproperty && functions.setproperty(npp, npobj, propertyName, value);
}
