// The NPN_ functions of programs that drive the plug-in itself, as a television's browser with a framework of its own.
// In programs that lack them the module's functions are used, which need the engine's table.
#include "fake_browser.h"

using fake::engineFunctions;

extern "C" {

void* NPN_MemAlloc(uint32_t size) {
    return engineFunctions.memalloc(size);
}

void NPN_MemFree(void* ptr) {
    engineFunctions.memfree(ptr);
}

void NPN_PluginThreadAsyncCall(NPP npp, void (*func)(void*), void* userData) {
    engineFunctions.pluginthreadasynccall(npp, func, userData);
}

NPError NPN_GetValue(NPP npp, NPNVariable variable, void* value) {
    if (variable == NPNVWindowNPObject && !fake::browser().window) {
        return NPERR_GENERIC_ERROR; // a framework does not ask the engine when the frame has gone
    }
    return engineFunctions.getvalue(npp, variable, value);
}

NPIdentifier NPN_GetStringIdentifier(const NPUTF8* name) {
    return engineFunctions.getstringidentifier(name);
}

NPIdentifier NPN_GetIntIdentifier(int32_t intid) {
    return engineFunctions.getintidentifier(intid);
}

bool NPN_IdentifierIsString(NPIdentifier identifier) {
    return engineFunctions.identifierisstring(identifier);
}

int32_t NPN_IntFromIdentifier(NPIdentifier identifier) {
    return engineFunctions.intfromidentifier(identifier);
}

NPUTF8* NPN_UTF8FromIdentifier(NPIdentifier identifier) {
    return engineFunctions.utf8fromidentifier(identifier);
}

NPObject* NPN_CreateObject(NPP npp, NPClass* aClass) {
    return engineFunctions.createobject(npp, aClass);
}

NPObject* NPN_RetainObject(NPObject* obj) {
    return engineFunctions.retainobject(obj);
}

void NPN_ReleaseObject(NPObject* obj) {
    engineFunctions.releaseobject(obj);
}

void NPN_ReleaseVariantValue(NPVariant* variant) {
    engineFunctions.releasevariantvalue(variant);
}

bool NPN_Invoke(NPP npp, NPObject* npobj, NPIdentifier methodName, const NPVariant* args, uint32_t argCount,
                NPVariant* result) {
    return engineFunctions.invoke(npp, npobj, methodName, args, argCount, result);
}

bool NPN_InvokeDefault(NPP npp, NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    return engineFunctions.invokeDefault(npp, npobj, args, argCount, result);
}

bool NPN_GetProperty(NPP npp, NPObject* npobj, NPIdentifier propertyName, NPVariant* result) {
    return engineFunctions.getproperty(npp, npobj, propertyName, result);
}
}
