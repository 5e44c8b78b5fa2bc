/** An audio component as script sees it (OIPF DAE, AVAudioComponent). */
#ifndef HBBTVAUDIOCOMPONENTCLASS_H
#define HBBTVAUDIOCOMPONENTCLASS_H

#include "HbbTVBaseClass.h"
#include "HbbTVExport.h"

#include "AVComponent/AVComponent.h"
#include "medialib_components.h"

/** Initialises the class of all audio component objects. Further calls have no effect. */
HBBTV_EXPORT void initializeAudioComponentNPClass();

/** Owner of an audio component's record and script object. Plug-in thread only. */
class HBBTV_EXPORT HbbTVAudioComponentClass : public HbbTVBaseClass {
public:
    static constexpr int propertyCount = 8;
    static const char* const propertyNames[propertyCount];

    /**
     * @param instance address of the plug-in instance's handle
     * @param info     copied
     */
    HbbTVAudioComponentClass(NPP* instance, const Hbbtv_AL_ComponentInfo& info);

    /** The script object lives as long as script holds it, but has no property values and cannot be selected. */
    ~HbbTVAudioComponentClass();

    /** @return the record, valid as long as this object is */
    AVAudioComponent* getAudioComponent();

    /** @return the script object, without a reference for the caller; null without memory */
    NPObject* getNPObject();

    /** Reads the script property `propertyNames[index]`. @return false when it has no value */
    bool readScriptProperty(int index, NPVariant* result);

    AVAudioComponent* m_AudioComponent;

private:
    AVAudioComponent m_record;
    AVComponent m_common;
    Hbbtv_AL_ComponentInfo m_info;
    NPObjectHbbTV* m_JSObject;
};

#endif
