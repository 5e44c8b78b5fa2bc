/**
 * Script objects and values of the Netscape Plug-in API (the "npruntime" extension).
 *
 * Names, values and memory layouts are those of the published API. All functions belong to the browser, have C
 * linkage and are called on the browser's plug-in thread only.
 */
#ifndef NPRUNTIME_H
#define NPRUNTIME_H

#include "nptypes.h"

#include "npapi.h"

#ifdef __cplusplus
extern "C" {
#endif

/** One byte of UTF-8 text. */
typedef char NPUTF8;

/** Text of a script value: UTF-8, counted, not necessarily zero-terminated. */
typedef struct _NPString {
    const NPUTF8* UTF8Characters;
    uint32_t UTF8Length; /**< bytes */
} NPString;

typedef enum {
    NPVariantType_Void, /**< undefined */
    NPVariantType_Null,
    NPVariantType_Bool,
    NPVariantType_Int32,
    NPVariantType_Double,
    NPVariantType_String,
    NPVariantType_Object
} NPVariantType;

typedef struct NPObject NPObject;
typedef struct NPClass NPClass;

/** A script value. A String's characters come from NPN_MemAlloc; an Object is reference-counted. */
typedef struct _NPVariant {
    NPVariantType type;
    union {
        bool boolValue;
        int32_t intValue;
        double doubleValue;
        NPString stringValue;
        NPObject* objectValue;
    } value;
} NPVariant;

/** An interned name or index: equal names have equal identifiers for the life of the process. */
typedef void* NPIdentifier;

#define NPVARIANT_IS_VOID(_v) ((_v).type == NPVariantType_Void)
#define NPVARIANT_IS_NULL(_v) ((_v).type == NPVariantType_Null)
#define NPVARIANT_IS_BOOLEAN(_v) ((_v).type == NPVariantType_Bool)
#define NPVARIANT_IS_INT32(_v) ((_v).type == NPVariantType_Int32)
#define NPVARIANT_IS_DOUBLE(_v) ((_v).type == NPVariantType_Double)
#define NPVARIANT_IS_STRING(_v) ((_v).type == NPVariantType_String)
#define NPVARIANT_IS_OBJECT(_v) ((_v).type == NPVariantType_Object)

#define NPVARIANT_TO_BOOLEAN(_v) ((_v).value.boolValue)
#define NPVARIANT_TO_INT32(_v) ((_v).value.intValue)
#define NPVARIANT_TO_DOUBLE(_v) ((_v).value.doubleValue)
#define NPVARIANT_TO_STRING(_v) ((_v).value.stringValue)
#define NPVARIANT_TO_OBJECT(_v) ((_v).value.objectValue)

#define VOID_TO_NPVARIANT(_v)                                                                                          \
    do {                                                                                                               \
        (_v).type = NPVariantType_Void;                                                                                \
        (_v).value.objectValue = NULL;                                                                                 \
    } while (0)
#define NULL_TO_NPVARIANT(_v)                                                                                          \
    do {                                                                                                               \
        (_v).type = NPVariantType_Null;                                                                                \
        (_v).value.objectValue = NULL;                                                                                 \
    } while (0)
#define BOOLEAN_TO_NPVARIANT(_val, _v)                                                                                 \
    do {                                                                                                               \
        (_v).type = NPVariantType_Bool;                                                                                \
        (_v).value.boolValue = !!(_val);                                                                               \
    } while (0)
#define INT32_TO_NPVARIANT(_val, _v)                                                                                   \
    do {                                                                                                               \
        (_v).type = NPVariantType_Int32;                                                                               \
        (_v).value.intValue = (_val);                                                                                  \
    } while (0)
#define DOUBLE_TO_NPVARIANT(_val, _v)                                                                                  \
    do {                                                                                                               \
        (_v).type = NPVariantType_Double;                                                                              \
        (_v).value.doubleValue = (_val);                                                                               \
    } while (0)
#define STRINGN_TO_NPVARIANT(_val, _len, _v)                                                                           \
    do {                                                                                                               \
        (_v).type = NPVariantType_String;                                                                              \
        (_v).value.stringValue.UTF8Characters = (_val);                                                                \
        (_v).value.stringValue.UTF8Length = (uint32_t)(_len);                                                          \
    } while (0)
#define OBJECT_TO_NPVARIANT(_val, _v)                                                                                  \
    do {                                                                                                               \
        (_v).type = NPVariantType_Object;                                                                              \
        (_v).value.objectValue = (_val);                                                                               \
    } while (0)

typedef NPObject* (*NPAllocateFunctionPtr)(NPP npp, NPClass* aClass);
typedef void (*NPDeallocateFunctionPtr)(NPObject* npobj);
typedef void (*NPInvalidateFunctionPtr)(NPObject* npobj);
typedef bool (*NPHasMethodFunctionPtr)(NPObject* npobj, NPIdentifier name);
typedef bool (*NPInvokeFunctionPtr)(NPObject* npobj, NPIdentifier name, const NPVariant* args, uint32_t argCount,
                                    NPVariant* result);
typedef bool (*NPInvokeDefaultFunctionPtr)(NPObject* npobj, const NPVariant* args, uint32_t argCount,
                                           NPVariant* result);
typedef bool (*NPHasPropertyFunctionPtr)(NPObject* npobj, NPIdentifier name);
typedef bool (*NPGetPropertyFunctionPtr)(NPObject* npobj, NPIdentifier name, NPVariant* result);
typedef bool (*NPSetPropertyFunctionPtr)(NPObject* npobj, NPIdentifier name, const NPVariant* value);
typedef bool (*NPRemovePropertyFunctionPtr)(NPObject* npobj, NPIdentifier name);
typedef bool (*NPEnumerationFunctionPtr)(NPObject* npobj, NPIdentifier** value, uint32_t* count);
typedef bool (*NPConstructFunctionPtr)(NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result);

/** `structVersion` of a class with `enumerate` and `construct`. */
#define NP_CLASS_STRUCT_VERSION 3

/** Behaviour of a kind of script object. The engine remembers answers by class: keep one static class per kind. */
struct NPClass {
    uint32_t structVersion;
    NPAllocateFunctionPtr allocate;     /**< allocates the object; null: the engine allocates a bare NPObject */
    NPDeallocateFunctionPtr deallocate; /**< frees the object; null: the engine frees it with NPN_MemFree */
    NPInvalidateFunctionPtr invalidate; /**< called when the object's instance is gone */
    NPHasMethodFunctionPtr hasMethod;
    NPInvokeFunctionPtr invoke;
    NPInvokeDefaultFunctionPtr invokeDefault;
    NPHasPropertyFunctionPtr hasProperty;
    NPGetPropertyFunctionPtr getProperty;
    NPSetPropertyFunctionPtr setProperty;
    NPRemovePropertyFunctionPtr removeProperty;
    NPEnumerationFunctionPtr enumerate;
    NPConstructFunctionPtr construct;
};

/** Head of every script object. Larger objects begin with these two fields. */
struct NPObject {
    NPClass* _class;
    uint32_t referenceCount;
};

/** Creates an object of `aClass` with one reference for the caller. @return the object, or null without memory */
NPObject* NPN_CreateObject(NPP npp, NPClass* aClass);

/** Adds a reference. @return `obj`, or null when `obj` is null. */
NPObject* NPN_RetainObject(NPObject* obj);

/** Releases a reference; the last release frees the object. @param obj the object, or null */
void NPN_ReleaseObject(NPObject* obj);

/** Frees a String's characters, releases an Object, and makes the variant Void. */
void NPN_ReleaseVariantValue(NPVariant* variant);

/** @param name zero-terminated UTF-8. @return the name's identifier, never freed. */
NPIdentifier NPN_GetStringIdentifier(const NPUTF8* name);

/** @return the identifier of an array index. */
NPIdentifier NPN_GetIntIdentifier(int32_t intid);

/** @return true when the identifier is a name, false when it is an index. */
bool NPN_IdentifierIsString(NPIdentifier identifier);

/** @return the name as zero-terminated UTF-8 for NPN_MemFree; null for an index or without memory */
NPUTF8* NPN_UTF8FromIdentifier(NPIdentifier identifier);

/** @return the index; undefined for a name */
int32_t NPN_IntFromIdentifier(NPIdentifier identifier);

/**
 * Calls a method of a script object.
 * @param args     `argCount` values, which belong to the caller
 * @param result   receives the returned value, which the caller releases with NPN_ReleaseVariantValue after true
 * @return false when the object has no such method or the call failed; `result` is then undefined
 */
bool NPN_Invoke(NPP npp, NPObject* npobj, NPIdentifier methodName, const NPVariant* args, uint32_t argCount,
                NPVariant* result);

/** Calls a script function. Parameters and result as for NPN_Invoke. */
bool NPN_InvokeDefault(NPP npp, NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result);

/**
 * Runs a script in the global scope of an object's page.
 * @param npobj  the page's window
 * @param script belongs to the caller
 * @param result receives the script's value, as for NPN_Invoke
 */
bool NPN_Evaluate(NPP npp, NPObject* npobj, NPString* script, NPVariant* result);

/** Reads a property. @param result as for NPN_Invoke. @return false when the object has no such property */
bool NPN_GetProperty(NPP npp, NPObject* npobj, NPIdentifier propertyName, NPVariant* result);

/** Writes a property. @param value belongs to the caller. @return false when the object refuses it */
bool NPN_SetProperty(NPP npp, NPObject* npobj, NPIdentifier propertyName, const NPVariant* value);

#ifdef __cplusplus
}

static_assert(sizeof(NPVariantType) == 4, "NPVariant crosses the engine's boundary");
static_assert(sizeof(NPString) == 2 * sizeof(void*), "NPString crosses the engine's boundary");
static_assert(offsetof(NPVariant, value) == alignof(NPVariant), "NPVariant crosses the engine's boundary");
static_assert(sizeof(NPVariant) == (sizeof(void*) == 8 ? 24 : alignof(NPVariant) + 8),
              "NPVariant crosses the engine's boundary");
static_assert(sizeof(NPObject) == 2 * sizeof(void*), "NPObject crosses the engine's boundary");
static_assert(offsetof(NPObject, referenceCount) == sizeof(void*), "NPObject crosses the engine's boundary");
static_assert(sizeof(NPClass) == 13 * sizeof(void*), "NPClass crosses the engine's boundary");
#endif

#endif
