/** A video component as script sees it (OIPF DAE, AVVideoComponent). */
#ifndef HBBTVVIDEOCOMPONENTCLASS_H
#define HBBTVVIDEOCOMPONENTCLASS_H

#include "HbbTVBaseClass.h"
#include "HbbTVExport.h"

#include "AVComponent/AVComponent.h"
#include "medialib_components.h"

/** Initialises the class of all video component objects. Further calls have no effect. */
HBBTV_EXPORT void initializeVideoComponentNPClass();

/** Owner of a video component's record and script object. Plug-in thread only. */
class HBBTV_EXPORT HbbTVVideoComponentClass : public HbbTVBaseClass {
public:
    static constexpr int propertyCount = 6;
    static const char* const propertyNames[propertyCount];

    /**
     * @param instance address of the plug-in instance's handle
     * @param info     copied
     */
    HbbTVVideoComponentClass(NPP* instance, const Hbbtv_AL_ComponentInfo& info);

    /** The script object lives as long as script holds it, but has no property values and cannot be selected. */
    ~HbbTVVideoComponentClass();

    /** @return the record, valid as long as this object is */
    AVVideoComponent* getVideoComponent();

    /** @return the script object, without a reference for the caller; null without memory */
    NPObject* getNPObject();

    /** Reads the script property `propertyNames[index]`. @return false when it has no value */
    bool readScriptProperty(int index, NPVariant* result);

    AVVideoComponent* m_VideoComponent;

private:
    AVVideoComponent m_record;
    AVComponent m_common;
    Hbbtv_AL_ComponentInfo m_info;
    NPObjectHbbTV* m_JSObject;
};

#endif
