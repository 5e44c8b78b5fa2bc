/** Types that the script objects of all plug-ins share. */
#ifndef HBBTVOBJECTSTYPES_H
#define HBBTVOBJECTSTYPES_H

#include "npapi/npruntime.h"

#include <stddef.h>

/** Access of script to a property. */
typedef enum AccessRight_e {
    R = -1, /**< read only */
    RW = 0, /**< read and write */
    W = 1   /**< write only */
} AccessRight;

/** Kinds of script objects of the broadcast and component interfaces: NPObjectHbbTV::typeNPObject. */
typedef enum VideoBroadcastNPObjectType_e {
    NPOBJECT_CHANNEL_CLASS = 200,
    NPOBJECT_CHANNEL_CONFIG_CLASS = 201,
    NPOBJECT_CHANNEL_LIST_CLASS = 202,
    NPOBJECT_PROGRAMME_CLASS = 203,
    NPOBJECT_PROGRAMME_COLLECTION_CLASS = 204,
    NPOBJECT_COMPONENT_COLLECTION_CLASS = 205,
    NPOBJECT_AUDIO_COMPONENT_CLASS = 206,
    NPOBJECT_VIDEO_COMPONENT_CLASS = 207,
    NPOBJECT_SUBTITLE_COMPONENT_CLASS = 208,
    NPOBJECT_STRING_COLLECTION_CLASS = 209
} VideoBroadcastNPObjectType_e;

/** Kinds of event objects: NPObjectHbbTV::typeNPObject. */
typedef enum ClassDOMEventNPObjectType_e {
    NPOBJECT_MEDIA_SYNCHRONISER_DOM_CLASS = 700,
    NPOBJECT_BROADCAST_DOM_CLASS = 701,
    NPOBJECT_AV_CONTROL_DOM_CLASS = 702
} ClassDOMEventNPObjectType_e;

/**
 * A script object of the plug-ins, as the browser and script see it. It begins like an NPObject, so that a pointer to
 * the record serves as the object. Allocated with NPN_MemAlloc. It lives until its last reference is released, which
 * may be long after its owner is gone: `objectInstancePtr` is then null, and the object has no property values.
 */
typedef struct NPObjectHbbTV {
    NPClass* _class;         /**< behaviour; as in NPObject */
    uint32_t referenceCount; /**< counted by the browser; as in NPObject */
    NPObject* npObject;      /**< the object that NPN_CreateObject returned */
    int typeNPObject;        /**< one of the kinds above */
    int IdNPObject;          /**< identifier within its kind */
    void* objectInstancePtr; /**< the owner on the plug-in's side; its class depends on the kind */
} NPObjectHbbTV;

static_assert(offsetof(NPObjectHbbTV, _class) == offsetof(NPObject, _class), "begins as an NPObject");
static_assert(offsetof(NPObjectHbbTV, referenceCount) == offsetof(NPObject, referenceCount), "begins as an NPObject");
static_assert(offsetof(NPObjectHbbTV, npObject) == 2 * sizeof(void*), "layout shared by all plug-ins");
static_assert(offsetof(NPObjectHbbTV, typeNPObject) == 3 * sizeof(void*), "layout shared by all plug-ins");
static_assert(offsetof(NPObjectHbbTV, objectInstancePtr) == 3 * sizeof(void*) + 8, "layout shared by all plug-ins");

#endif
