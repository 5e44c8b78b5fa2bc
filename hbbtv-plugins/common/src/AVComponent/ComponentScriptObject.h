/** What the script objects of video, audio and subtitle components have in common. */
#ifndef COMPONENTSCRIPTOBJECT_H
#define COMPONENTSCRIPTOBJECT_H

#include "HbbTVBaseClass.h"

#include "AVComponent/AVComponent.h"
#include "medialib_components.h"

/** The properties of every component, the first of each table of names. */
enum CommonComponentProperty {
    COMPONENT_PROPERTY_TYPE,
    COMPONENT_PROPERTY_ENCODING,
    COMPONENT_PROPERTY_ENCRYPTED,
    COMPONENT_PROPERTY_COMPONENT_TAG,
    COMPONENT_PROPERTY_PID,
    COMPONENT_PROPERTY_COMMON_COUNT
};
#define COMMON_COMPONENT_PROPERTY_NAMES "type", "encoding", "encrypted", "componentTag", "pid"

/** @param info source of `common`, must live as long. Fills the fields that all types have. */
inline void fillCommonComponent(Hbbtv_AL_ComponentInfo& info, AVComponent* common) {
    common->type = info.type;
    common->encoding = info.encoding;
    common->encrypted = info.encrypted;
    common->componentTag = info.componentTag;
    common->pid = info.pid;
}

/** @param index a CommonComponentProperty. @return false when the component has no such value */
inline bool readCommonComponent(const AVComponent& common, int index, NPVariant* result) {
    switch (index) {
    case COMPONENT_PROPERTY_TYPE:
        INT32_TO_NPVARIANT(common.type, *result);
        return true;
    case COMPONENT_PROPERTY_ENCODING:
        return HbbTVBaseClass::makeString(common.encoding, result);
    case COMPONENT_PROPERTY_ENCRYPTED:
        BOOLEAN_TO_NPVARIANT(common.encrypted != 0, *result);
        return true;
    case COMPONENT_PROPERTY_COMPONENT_TAG:
        INT32_TO_NPVARIANT(common.componentTag, *result);
        return common.componentTag >= 0;
    case COMPONENT_PROPERTY_PID:
        INT32_TO_NPVARIANT(common.pid, *result);
        return true;
    default:
        return false;
    }
}

/**
 * The NPClass of a kind of component.
 * @tparam Owner has `static const char* const propertyNames[]` of `propertyCount` entries and
 *               `bool readScriptProperty(int index, NPVariant* result)`
 */
template <class Owner> class ComponentScriptObject {
public:
    static void initialize() {
        s_class.structVersion = NP_CLASS_STRUCT_VERSION;
        s_class.allocate = HbbTVBaseClass::allocateRecord;
        s_class.deallocate = HbbTVBaseClass::deallocateRecord;
        s_class.hasMethod = hasMethod;
        s_class.hasProperty = hasProperty;
        s_class.getProperty = getProperty;
        s_class.setProperty = setProperty;
        for (int i = 0; i < Owner::propertyCount; ++i) {
            s_identifiers[i] = NPN_GetStringIdentifier(Owner::propertyNames[i]);
        }
    }

    static NPObjectHbbTV* create(NPP instance, int type, int id, Owner* owner) {
        return HbbTVBaseClass::createRecord(instance, &s_class, type, id, owner);
    }

private:
    static bool hasMethod(NPObject*, NPIdentifier) { return false; }

    static bool hasProperty(NPObject*, NPIdentifier name) {
        return HbbTVBaseClass::findIdentifier(s_identifiers, Owner::propertyCount, name) >= 0;
    }

    static bool getProperty(NPObject* object, NPIdentifier name, NPVariant* result) {
        Owner* owner = static_cast<Owner*>(reinterpret_cast<NPObjectHbbTV*>(object)->objectInstancePtr);
        const int index = HbbTVBaseClass::findIdentifier(s_identifiers, Owner::propertyCount, name);
        return owner && index >= 0 && owner->readScriptProperty(index, result);
    }

    static bool setProperty(NPObject*, NPIdentifier, const NPVariant*) { return false; }

    static NPClass s_class;
    static NPIdentifier s_identifiers[Owner::propertyCount];
};

template <class Owner> NPClass ComponentScriptObject<Owner>::s_class;
template <class Owner> NPIdentifier ComponentScriptObject<Owner>::s_identifiers[Owner::propertyCount];

#endif
