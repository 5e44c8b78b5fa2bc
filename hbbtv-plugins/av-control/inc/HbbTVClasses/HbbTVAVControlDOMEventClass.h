/** The event object that the listeners of an A/V Control object receive. */
#ifndef HBBTVAVCONTROLDOMEVENTCLASS_H
#define HBBTVAVCONTROLDOMEVENTCLASS_H

#include "HbbTVBaseClass.h"
#include "HbbTVExport.h"
#include "HbbTVObjectsTypes.h"

/**
 * Prepares the class of all event objects: its callbacks and the identifiers of its properties. Call it before the
 * first event object is created. Further calls have no effect.
 * @return true
 */
bool initializeAVControlDOMEventNPClass();

/**
 * Owner of an instance's only event object, which has the read-only script properties `position`, `speed`,
 * `componentType` and `state`. Values stay from event to event. Used on the browser's plug-in thread only.
 */
class HBBTV_EXPORT HbbTVAVControlDOMEventClass : public HbbTVBaseClass {
public:
    /** @param instance address of the plug-in instance's handle, valid as long as this object is */
    explicit HbbTVAVControlDOMEventClass(NPP* instance);

    /** The script object lives until script releases its last reference, but has no property values any more. */
    ~HbbTVAVControlDOMEventClass();

    /** Creates the script object; called by the constructor. @return it, or null without memory */
    NPObject* createAVControlDOMEventNPObject();

    /** @return the script object, without a reference for the caller; null when it could not be created */
    NPObject* getAVControlDOMEventNPObject();

    /** @return the four property values in the order position, speed, componentType, state; null without memory */
    NPVariant* getNPVariantProperties();

    /** Sets a property to an Int32. @return false for an unknown name */
    bool setAVControlDOMEventProperty(const char* name, int value);

    /** Sets a property to a Double. @return false for an unknown name */
    bool setAVControlDOMEventPropertyDouble(const char* name, double value);

    NPP* m_InstanceHandler;
    int m_NPVariantPropertiesNumber;
    NPVariant* m_NPVariantProperties;
    bool m_ObjectAllocated;
    NPObject* m_JSObject;
};

#endif
