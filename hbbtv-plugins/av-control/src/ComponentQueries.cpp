// The media's components as script lists them.
#include "Internals.h"
#include "Log.h"
#include "Slots.h"

#include "AVComponent/HbbTVComponentCollectionHolderClass.h"

/// @param object a collection's script object, or null. @return it with a reference for the caller, or Null
static NPVariant retainedObject(NPObject* object) {
    return object ? objectVariant(NPN_RetainObject(object)) : nullVariant();
}

/// Reads a component type. @return false after a log line for what is no number, or a negative one
static bool readComponentType(const NPVariant& npComponentType, int* type) {
    if (!readInt(npComponentType, type)) {
        LOG_ERROR("%s\n", "Wrong input argument type");
        return false;
    }
    if (*type < 0) {
        LOG_ERROR("%s\n", "Wrong input argument value");
        return false;
    }
    return true;
}

NPVariant VideoPlugin::GetComponents(NPVariant npComponentType) {
    LOG("Method getComponents called\n");
    HbbTVComponentCollectionHolderClass* const holder = m_pComponentCollectionHolder;
    if (NPVARIANT_IS_NULL(npComponentType)) {
        LOG("Method getComponents(NULL) called\n\n");
        LOG("Method getComponents called (component type : %d)\n", AV_COMPONENT_TYPE_INVALID);
        return retainedObject(holder ? holder->getAvailableAllComponents() : nullptr);
    }
    int type = 0;
    if (!readComponentType(npComponentType, &type)) {
        return nullVariant();
    }
    NPObject* collection = nullptr;
    switch (type) {
    case AV_COMPONENT_TYPE_VIDEO:
        collection = holder ? holder->getAvailableVideoComponents() : nullptr;
        break;
    case AV_COMPONENT_TYPE_AUDIO:
        collection = holder ? holder->getAvailableAudioComponents() : nullptr;
        break;
    case AV_COMPONENT_TYPE_SUBTITLE:
        collection = holder ? holder->getAvailableSubtitleComponents() : nullptr;
        break;
    default:
        LOG_ERROR("Unsupported component type: %d\n", type);
        return nullVariant();
    }
    LOG("Method getComponents called (component type : %d)\n", type);
    return retainedObject(collection);
}

NPVariant VideoPlugin::GetCurrentActiveComponents(NPVariant npComponentType) {
    LOG("Method getCurrentActiveComponents called\n");
    HbbTVComponentCollectionHolderClass* const holder = m_pComponentCollectionHolder;
    int type = 0;
    if (!readComponentType(npComponentType, &type)) {
        return nullVariant();
    }
    NPObject* collection = nullptr;
    switch (type) {
    case AV_COMPONENT_TYPE_VIDEO:
        collection = holder ? holder->getActiveVideoComponents() : nullptr;
        break;
    case AV_COMPONENT_TYPE_AUDIO:
        collection = holder ? holder->getActiveAudioComponents() : nullptr;
        break;
    case AV_COMPONENT_TYPE_SUBTITLE:
        collection = holder ? holder->getActiveSubtitleComponents() : nullptr;
        break;
    default:
        LOG_ERROR("Unsupported component type: %d\n", type);
        return nullVariant();
    }
    LOG("Method getCurrentActiveComponents called (active component type : %d)\n", type);
    return retainedObject(collection);
}
