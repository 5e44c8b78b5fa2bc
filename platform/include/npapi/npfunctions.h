/**
 * Function tables and entry points between an engine and a plug-in module (NPAPI 0.27, POSIX).
 *
 * The order of the members is the published one: engine and module exchange these tables by their size in bytes,
 * and each side uses the smaller of the two sizes. Members that the framework never calls are declared as
 * `NPUnusedProcPtr`, which keeps the layout without their parameter lists.
 */
#ifndef NPFUNCTIONS_H
#define NPFUNCTIONS_H

#include "npapi.h"
#include "npruntime.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A table member that exists only for the layout. */
typedef void (*NPUnusedProcPtr)(void);

/** The engine's functions for the module. Zero-filled before it is copied, so that a missing function is null. */
typedef struct _NPNetscapeFuncs {
    uint16_t size; /**< bytes of the table that the engine fills */
    uint16_t version;
    NPUnusedProcPtr geturl;
    NPUnusedProcPtr posturl;
    NPUnusedProcPtr requestread;
    NPUnusedProcPtr newstream;
    NPUnusedProcPtr write;
    NPUnusedProcPtr destroystream;
    NPUnusedProcPtr status;
    NPUnusedProcPtr uagent;
    void* (*memalloc)(uint32_t size);
    void (*memfree)(void* ptr);
    NPUnusedProcPtr memflush;
    NPUnusedProcPtr reloadplugins;
    NPUnusedProcPtr getJavaEnv;
    NPUnusedProcPtr getJavaPeer;
    NPUnusedProcPtr geturlnotify;
    NPUnusedProcPtr posturlnotify;
    NPError (*getvalue)(NPP instance, NPNVariable variable, void* value);
    NPError (*setvalue)(NPP instance, NPPVariable variable, void* value);
    NPUnusedProcPtr invalidaterect;
    NPUnusedProcPtr invalidateregion;
    NPUnusedProcPtr forceredraw;
    NPIdentifier (*getstringidentifier)(const NPUTF8* name);
    NPUnusedProcPtr getstringidentifiers;
    NPIdentifier (*getintidentifier)(int32_t intid);
    bool (*identifierisstring)(NPIdentifier identifier);
    NPUTF8* (*utf8fromidentifier)(NPIdentifier identifier);
    int32_t (*intfromidentifier)(NPIdentifier identifier);
    NPObject* (*createobject)(NPP npp, NPClass* aClass);
    NPObject* (*retainobject)(NPObject* obj);
    void (*releaseobject)(NPObject* obj);
    bool (*invoke)(NPP npp, NPObject* obj, NPIdentifier methodName, const NPVariant* args, uint32_t argCount,
                   NPVariant* result);
    bool (*invokeDefault)(NPP npp, NPObject* obj, const NPVariant* args, uint32_t argCount, NPVariant* result);
    bool (*evaluate)(NPP npp, NPObject* obj, NPString* script, NPVariant* result);
    bool (*getproperty)(NPP npp, NPObject* obj, NPIdentifier propertyName, NPVariant* result);
    bool (*setproperty)(NPP npp, NPObject* obj, NPIdentifier propertyName, const NPVariant* value);
    bool (*removeproperty)(NPP npp, NPObject* obj, NPIdentifier propertyName);
    NPUnusedProcPtr hasproperty;
    NPUnusedProcPtr hasmethod;
    void (*releasevariantvalue)(NPVariant* variant);
    NPUnusedProcPtr setexception;
    NPUnusedProcPtr pushpopupsenabledstate;
    NPUnusedProcPtr poppopupsenabledstate;
    NPUnusedProcPtr enumerate;
    void (*pluginthreadasynccall)(NPP instance, void (*func)(void*), void* userData);
    NPUnusedProcPtr construct;
    NPUnusedProcPtr getvalueforurl;
    NPUnusedProcPtr setvalueforurl;
    NPUnusedProcPtr getauthenticationinfo;
    NPUnusedProcPtr scheduletimer;
    NPUnusedProcPtr unscheduletimer;
    NPUnusedProcPtr popupcontextmenu;
    NPUnusedProcPtr convertpoint;
    NPUnusedProcPtr handleevent;
    NPUnusedProcPtr unfocusinstance;
    NPUnusedProcPtr urlredirectresponse;
} NPNetscapeFuncs;

/** The module's functions for the engine. */
typedef struct _NPPluginFuncs {
    uint16_t size; /**< bytes of the table that the engine provides */
    uint16_t version;
    NPError (*newp)(NPMIMEType pluginType, NPP instance, uint16_t mode, int16_t argc, char* argn[], char* argv[],
                    NPSavedData* saved);
    NPError (*destroy)(NPP instance, NPSavedData** save);
    NPError (*setwindow)(NPP instance, NPWindow* window);
    NPError (*newstream)(NPP instance, NPMIMEType type, NPStream* stream, NPBool seekable, uint16_t* stype);
    NPError (*destroystream)(NPP instance, NPStream* stream, NPReason reason);
    void (*asfile)(NPP instance, NPStream* stream, const char* fname);
    int32_t (*writeready)(NPP instance, NPStream* stream);
    int32_t (*write)(NPP instance, NPStream* stream, int32_t offset, int32_t len, void* buffer);
    void (*print)(NPP instance, NPPrint* platformPrint);
    int16_t (*event)(NPP instance, void* event);
    void (*urlnotify)(NPP instance, const char* url, NPReason reason, void* notifyData);
    void* javaClass;
    NPError (*getvalue)(NPP instance, NPPVariable variable, void* value);
    NPError (*setvalue)(NPP instance, NPNVariable variable, void* value);
    NPUnusedProcPtr gotfocus;
    NPUnusedProcPtr lostfocus;
    NPUnusedProcPtr urlredirectnotify;
    NPUnusedProcPtr clearsitedata;
    NPUnusedProcPtr getsiteswithdata;
    NPUnusedProcPtr didComposite;
} NPPluginFuncs;

/**
 * First call of the engine after it has loaded the module.
 * @param browser the engine's functions, which the module copies; null is refused
 * @param plugin  the module's functions, which the module fills in up to `size`; null is refused
 * @return NPERR_NO_ERROR, NPERR_INVALID_FUNCTABLE_ERROR, or NPERR_INCOMPATIBLE_VERSION_ERROR for another major
 *         version
 */
NPError NP_Initialize(NPNetscapeFuncs* browser, NPPluginFuncs* plugin);

/** Last call of the engine: no instance exists any more. */
NPError NP_Shutdown(void);

/** @return the module's MIME types in NPAPI's `type:extension:description;...` form; static text */
const char* NP_GetMIMEDescription(void);

/**
 * Gets the name or description of the module, before any instance exists.
 * @param future   not used
 * @param variable NPPVpluginNameString or NPPVpluginDescriptionString
 * @param value    `char**`, receives static text
 * @return NPERR_NO_ERROR, or NPERR_INVALID_PARAM for another variable or a null `value`
 */
NPError NP_GetValue(void* future, NPPVariable variable, void* value);

#ifdef __cplusplus
}

static_assert(sizeof(NPNetscapeFuncs) == (sizeof(void*) == 8 ? 448 : 224), "engines pass 55 functions");
static_assert(offsetof(NPNetscapeFuncs, memalloc) == sizeof(void*) * 9, "order of the published table");
static_assert(offsetof(NPNetscapeFuncs, getvalue) == sizeof(void*) * 17, "order of the published table");
static_assert(offsetof(NPNetscapeFuncs, createobject) == sizeof(void*) * 28, "order of the published table");
static_assert(offsetof(NPNetscapeFuncs, pluginthreadasynccall) == sizeof(void*) * 44, "order of the published table");
static_assert(sizeof(NPPluginFuncs) == sizeof(void*) * 21, "20 functions behind size and version");
static_assert(offsetof(NPPluginFuncs, getvalue) == sizeof(void*) * 13, "order of the published table");
#endif

#endif
