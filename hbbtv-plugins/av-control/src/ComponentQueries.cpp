// The media's components as script lists them.
#include "Internals.h"
#include "Log.h"
#include "Slots.h"

#include "AVComponent/HbbTVComponentCollectionHolderClass.h"

/// @param object a collection's script object, or null. @return it with a reference for the caller, or Null
static NPVariant retainedObject(NPObject* object) {
    return object ? objectVariant(NPN_RetainObject(object)) : nullVariant();
}

/// Reads a component type.
/// @param type receives 0 to 2
/// @return false after a log line for what is no number, or names no type
static bool readComponentType(const NPVariant& npComponentType, int* type) {
    if (!readInt(npComponentType, type)) {
        LOG_ERROR("%s\n", "Wrong input argument type");
        return false;
    }
    if (*type < 0) {
        LOG_ERROR("%s\n", "Wrong input argument value");
        return false;
    }
    if (*type > AV_COMPONENT_TYPE_SUBTITLE) {
        LOG_ERROR("Unsupported component type: %d\n", *type);
        return false;
    }
    return true;
}

NPVariant VideoPlugin::GetComponents(NPVariant npComponentType) {
    LOG("Method getComponents called\n");
    int type = AV_COMPONENT_TYPE_INVALID;
    if (NPVARIANT_IS_NULL(npComponentType)) {
        LOG("Method getComponents(NULL) called\n\n");
    } else if (!readComponentType(npComponentType, &type)) {
        return nullVariant();
    }
    LOG("Method getComponents called (component type : %d)\n", type);
    HbbTVComponentCollectionHolderClass* const holder = m_pComponentCollectionHolder;
    if (!holder) {
        return nullVariant();
    }
    switch (type) {
    case AV_COMPONENT_TYPE_VIDEO:
        return retainedObject(holder->getAvailableVideoComponents());
    case AV_COMPONENT_TYPE_AUDIO:
        return retainedObject(holder->getAvailableAudioComponents());
    case AV_COMPONENT_TYPE_SUBTITLE:
        return retainedObject(holder->getAvailableSubtitleComponents());
    default:
        return retainedObject(holder->getAvailableAllComponents());
    }
}

NPVariant VideoPlugin::GetCurrentActiveComponents(NPVariant npComponentType) {
    LOG("Method getCurrentActiveComponents called\n");
    int type = 0;
    if (!readComponentType(npComponentType, &type)) {
        return nullVariant();
    }
    LOG("Method getCurrentActiveComponents called (active component type : %d)\n", type);
    HbbTVComponentCollectionHolderClass* const holder = m_pComponentCollectionHolder;
    if (!holder) {
        return nullVariant();
    }
    switch (type) {
    case AV_COMPONENT_TYPE_VIDEO:
        return retainedObject(holder->getActiveVideoComponents());
    case AV_COMPONENT_TYPE_AUDIO:
        return retainedObject(holder->getActiveAudioComponents());
    default:
        return retainedObject(holder->getActiveSubtitleComponents());
    }
}
