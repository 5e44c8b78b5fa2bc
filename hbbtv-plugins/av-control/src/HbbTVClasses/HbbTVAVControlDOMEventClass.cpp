#include "HbbTVClasses/HbbTVAVControlDOMEventClass.h"

#include "Log.h"

#include <string.h>

static constexpr int EVENT_PROPERTY_COUNT = 4;

static const char* const psAVControlDOMEvent[EVENT_PROPERTY_COUNT] = {"position", "speed", "componentType", "state"};
static const AccessRight parAVControlDOMEvent[EVENT_PROPERTY_COUNT] = {R, R, R, R};
static NPIdentifier piAVControlDOMEvent[EVENT_PROPERTY_COUNT];
static NPClass AVControlDOMEventNPClass;

/// Writes an ordinary line with an identifier's name: `format` takes one %s.
#define LOG_NAME(format, identifier)                                                                                   \
    do {                                                                                                               \
        if (ordinaryLogIsOn()) {                                                                                       \
            NPUTF8* text = NPN_UTF8FromIdentifier(identifier);                                                         \
            LOG(format, text ? text : "");                                                                             \
            if (text) {                                                                                                \
                NPN_MemFree(text);                                                                                     \
            }                                                                                                          \
        }                                                                                                              \
    } while (0)

static NPObject* Allocate(NPP /*instance*/, NPClass* /*scriptClass*/) {
    NPObject* object = static_cast<NPObject*>(NPN_MemAlloc(sizeof(NPObject)));
    if (!object) {
        LOG_ERROR("%s\n", "AVControlDOMEvent NPObject allocation error !");
    }
    return object;
}

static bool HasMethod(NPObject* /*npobj*/, NPIdentifier name) {
    LOG_NAME("Has Method: %s\n", name);
    return false;
}

static bool Invoke(NPObject* /*npobj*/, NPIdentifier /*name*/, const NPVariant* /*args*/, uint32_t /*argCount*/,
                   NPVariant* /*result*/) {
    return false;
}

static bool InvokeDefault(NPObject* /*npobj*/, const NPVariant* /*args*/, uint32_t /*argCount*/,
                          NPVariant* /*result*/) {
    return false;
}

static bool HasProperty(NPObject* npobj, NPIdentifier name) {
    LOG_NAME("Has property: %s\n", name);
    if (npobj->_class->allocate != Allocate) {
        LOG_ERROR("%s\n", "Wrong NPObjectType !");
        return false;
    }
    const bool found = HbbTVBaseClass::findIdentifier(piAVControlDOMEvent, EVENT_PROPERTY_COUNT, name) >= 0;
    LOG("Has property: found  = %d\n", found);
    return found;
}

static bool GetProperty(NPObject* npobj, NPIdentifier name, NPVariant* result) {
    LOG_NAME("Get property: %s\n", name);
    HbbTVAVControlDOMEventClass* owner =
        static_cast<HbbTVAVControlDOMEventClass*>(reinterpret_cast<NPObjectHbbTV*>(npobj)->objectInstancePtr);
    const int index = HbbTVBaseClass::findIdentifier(piAVControlDOMEvent, EVENT_PROPERTY_COUNT, name);
    if (!owner || !owner->getNPVariantProperties() || index < 0 || parAVControlDOMEvent[index] >= W) {
        return false;
    }
    return HbbTVBaseClass::copyVariant(owner->getNPVariantProperties()[index], result);
}

static bool SetProperty(NPObject* /*npobj*/, NPIdentifier /*name*/, const NPVariant* /*value*/) {
    return false;
}

bool initializeAVControlDOMEventNPClass() {
    LOG("Initializing AVControlDOMEvent Class...\n");
    AVControlDOMEventNPClass.structVersion = NP_CLASS_STRUCT_VERSION;
    AVControlDOMEventNPClass.allocate = Allocate;
    AVControlDOMEventNPClass.hasMethod = HasMethod;
    AVControlDOMEventNPClass.invoke = Invoke;
    AVControlDOMEventNPClass.invokeDefault = InvokeDefault;
    AVControlDOMEventNPClass.hasProperty = HasProperty;
    AVControlDOMEventNPClass.getProperty = GetProperty;
    AVControlDOMEventNPClass.setProperty = SetProperty;
    for (int i = 0; i < EVENT_PROPERTY_COUNT; ++i) {
        piAVControlDOMEvent[i] = NPN_GetStringIdentifier(psAVControlDOMEvent[i]);
    }
    LOG("Initializing AVControlDOMEvent Class End...\n");
    return true;
}

HbbTVAVControlDOMEventClass::HbbTVAVControlDOMEventClass(NPP* instance)
    : m_InstanceHandler(nullptr), m_NPVariantPropertiesNumber(0), m_NPVariantProperties(nullptr),
      m_ObjectAllocated(false), m_JSObject(nullptr) {
    LOG("HbbTVAVControlDOMEventClass constructor called\n");
    m_NPVariantPropertiesNumber = EVENT_PROPERTY_COUNT;
    m_InstanceHandler = instance;
    m_NPVariantProperties = static_cast<NPVariant*>(NPN_MemAlloc(EVENT_PROPERTY_COUNT * sizeof(NPVariant)));
    if (!m_NPVariantProperties) {
        LOG_ERROR("No memory for the event object: listeners will not be called\n");
        return;
    }
    for (int i = 0; i < EVENT_PROPERTY_COUNT; ++i) {
        INT32_TO_NPVARIANT(0, m_NPVariantProperties[i]);
    }
    if (createAVControlDOMEventNPObject()) {
        LOG("HbbTVAVControlDOMEventClass object created\n");
        m_ObjectAllocated = true;
    }
}

HbbTVAVControlDOMEventClass::~HbbTVAVControlDOMEventClass() {
    LOG("To release propertyes...\n");
    for (int i = 0; m_NPVariantProperties && i < m_NPVariantPropertiesNumber; ++i) {
        LOG("To release property: %d\n", i);
        if (NPVARIANT_IS_STRING(m_NPVariantProperties[i])) {
            NPN_ReleaseVariantValue(&m_NPVariantProperties[i]);
        }
    }
    LOG("To remove NPObject...\n");
    if (m_JSObject) {
        NPObjectHbbTV* record = reinterpret_cast<NPObjectHbbTV*>(m_JSObject);
        NPN_ReleaseObject(record->npObject);
        record->npObject = nullptr;
        if (record->referenceCount == 1) {
            NPN_MemFree(record);
        } else {
            // Script still holds it: it stays, without an owner, until the last reference has been given back.
            detachRecord(record);
        }
    }
    LOG("To delete property slots...\n");
    if (m_NPVariantProperties) {
        LOG("Calling NPN_MemFree on address %p\n", static_cast<void*>(m_NPVariantProperties));
        NPN_MemFree(m_NPVariantProperties);
        m_NPVariantProperties = nullptr;
        LOG("m_NPVariantProperties freed \n\n");
    }
    LOG("HbbTVAVControlDOMEventClass object %p is deleted.\n", static_cast<void*>(this));
}

NPObject* HbbTVAVControlDOMEventClass::createAVControlDOMEventNPObject() {
    NPObjectHbbTV* record = static_cast<NPObjectHbbTV*>(NPN_MemAlloc(sizeof(NPObjectHbbTV)));
    NPObject* object = record ? NPN_CreateObject(*m_InstanceHandler, &AVControlDOMEventNPClass) : nullptr;
    if (!object) {
        LOG_ERROR("No memory for the event object: listeners will not be called\n");
        if (record) {
            NPN_MemFree(record);
        }
        return nullptr;
    }
    record->_class = object->_class;
    record->referenceCount = object->referenceCount;
    record->npObject = object;
    record->typeNPObject = NPOBJECT_AV_CONTROL_DOM_CLASS;
    record->IdNPObject = 0;
    record->objectInstancePtr = this;
    m_JSObject = reinterpret_cast<NPObject*>(record);
    return m_JSObject;
}

NPObject* HbbTVAVControlDOMEventClass::getAVControlDOMEventNPObject() {
    return m_JSObject;
}

NPVariant* HbbTVAVControlDOMEventClass::getNPVariantProperties() {
    return m_NPVariantProperties;
}

/// @return the slot of a property, or null
static NPVariant* findSlot(NPVariant* slots, const char* name) {
    const int index =
        HbbTVBaseClass::findIdentifier(piAVControlDOMEvent, EVENT_PROPERTY_COUNT, NPN_GetStringIdentifier(name));
    return slots && index >= 0 ? &slots[index] : nullptr;
}

bool HbbTVAVControlDOMEventClass::setAVControlDOMEventProperty(const char* name, int value) {
    LOG("Set property: %s %d\n", name, value);
    NPVariant* slot = findSlot(m_NPVariantProperties, name);
    if (!slot) {
        return false;
    }
    INT32_TO_NPVARIANT(value, *slot);
    return true;
}

bool HbbTVAVControlDOMEventClass::setAVControlDOMEventPropertyDouble(const char* name, double value) {
    LOG("Set property: %s %f\n", name, value);
    NPVariant* slot = findSlot(m_NPVariantProperties, name);
    if (!slot) {
        return false;
    }
    DOUBLE_TO_NPVARIANT(value, *slot);
    return true;
}
