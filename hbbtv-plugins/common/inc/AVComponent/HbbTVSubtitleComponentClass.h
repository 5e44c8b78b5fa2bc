/** A subtitle component as script sees it (OIPF DAE, AVSubtitleComponent). */
#ifndef HBBTVSUBTITLECOMPONENTCLASS_H
#define HBBTVSUBTITLECOMPONENTCLASS_H

#include "HbbTVBaseClass.h"
#include "HbbTVExport.h"

#include "AVComponent/AVComponent.h"
#include "medialib_components.h"

/** Initialises the class of all subtitle component objects. Further calls have no effect. */
HBBTV_EXPORT void initializeSubtitleComponentNPClass();

/** Owner of a subtitle component's record and script object. Plug-in thread only. */
class HBBTV_EXPORT HbbTVSubtitleComponentClass : public HbbTVBaseClass {
public:
    static constexpr int propertyCount = 7;
    static const char* const propertyNames[propertyCount];

    /**
     * @param instance address of the plug-in instance's handle
     * @param info     copied
     */
    HbbTVSubtitleComponentClass(NPP* instance, const Hbbtv_AL_ComponentInfo& info);

    /** The script object lives as long as script holds it, but has no property values and cannot be selected. */
    ~HbbTVSubtitleComponentClass();

    /** @return the record, valid as long as this object is */
    AVSubtitleComponent* getSubtitleComponent();

    /** @return the script object, without a reference for the caller; null without memory */
    NPObject* getNPObject();

    /** Reads the script property `propertyNames[index]`. @return false when it has no value */
    bool readScriptProperty(int index, NPVariant* result);

    AVSubtitleComponent* m_SubtitleComponent;

private:
    AVSubtitleComponent m_record;
    AVComponent m_common;
    Hbbtv_AL_ComponentInfo m_info;
    NPObjectHbbTV* m_JSObject;
};

#endif
