// Selecting and unselecting components. The player keeps the selection and reports its changes.
#include "Internals.h"
#include "Log.h"
#include "Slots.h"

#include "AVComponent/HbbTVAudioComponentClass.h"
#include "AVComponent/HbbTVSubtitleComponentClass.h"
#include "AVComponent/HbbTVVideoComponentClass.h"

/// A component that script has passed: the record of the kind that it is, the others null.
struct ScriptComponent {
    AVVideoComponent* video;
    AVAudioComponent* audio;
    AVSubtitleComponent* subtitle;
};

/// @return false after a log line when the value is no component of the framework's
static bool findComponent(const NPVariant& npComponent, ScriptComponent* component) {
    *component = {nullptr, nullptr, nullptr};
    if (!NPVARIANT_IS_OBJECT(npComponent)) {
        LOG_ERROR("%s\n", "Wrong input argument type !");
        return false;
    }
    NPObject* object = NPVARIANT_TO_OBJECT(npComponent);
    const NPObjectHbbTV* record = reinterpret_cast<const NPObjectHbbTV*>(object);
    // A script object of the page is shorter than the record: its class decides before anything else is read.
    if (!HbbTVBaseClass::isFrameworkObject(object) || record->typeNPObject < NPOBJECT_AUDIO_COMPONENT_CLASS ||
        record->typeNPObject > NPOBJECT_SUBTITLE_COMPONENT_CLASS) {
        LOG_ERROR("%s\n", "Wrong object type !");
        return false;
    }
    void* owner = record->objectInstancePtr;
    if (!owner) {
        LOG_ERROR("Unable to obtain parent component object !\n");
        return false;
    }
    switch (record->typeNPObject) {
    case NPOBJECT_VIDEO_COMPONENT_CLASS:
        component->video = static_cast<HbbTVVideoComponentClass*>(owner)->getVideoComponent();
        break;
    case NPOBJECT_AUDIO_COMPONENT_CLASS:
        component->audio = static_cast<HbbTVAudioComponentClass*>(owner)->getAudioComponent();
        break;
    default:
        component->subtitle = static_cast<HbbTVSubtitleComponentClass*>(owner)->getSubtitleComponent();
        break;
    }
    if (!component->video && !component->audio && !component->subtitle) {
        LOG_ERROR("Unable to obtain component structure !\n");
        return false;
    }
    return true;
}

void VideoPlugin::SelectComponent(NPVariant npComponent) {
    ScriptComponent component;
    if (!findComponent(npComponent, &component)) {
        return;
    }
    if (component.video) {
        LOG("\nSelectAVVideoComponent\n\n");
        Hbbtv_AL_MediaPlayerSelectAVVideoComponent(m_hPlayer, component.video);
    } else if (component.audio) {
        LOG("\nSelectAVAudioComponent\n\n");
        Hbbtv_AL_MediaPlayerSelectAVAudioComponent(m_hPlayer, component.audio);
    } else {
        LOG("\nSelectAVSubtitleComponent\n\n");
        Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(m_hPlayer, component.subtitle);
    }
}

void VideoPlugin::UnSelectComponent(NPVariant npComponent) {
    ScriptComponent component;
    if (!findComponent(npComponent, &component)) {
        return;
    }
    if (component.video) {
        Hbbtv_AL_MediaPlayerUnselectAVVideoComponent(m_hPlayer, component.video);
    } else if (component.audio) {
        Hbbtv_AL_MediaPlayerUnselectAVAudioComponent(m_hPlayer, component.audio);
    } else {
        Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent(m_hPlayer, component.subtitle);
    }
}

void VideoPlugin::SelectDefaultComponent(NPVariant componentType) {
    int type = 0;
    if (!readInt(componentType, &type)) {
        LOG_ERROR("%s\n", "Wrong input argument type !");
        return;
    }
    Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(m_hPlayer, type);
}

void VideoPlugin::UnSelectDefaultComponent(NPVariant componentType) {
    int type = 0;
    if (!readInt(componentType, &type)) {
        LOG_ERROR("%s\n", "Wrong input argument type !");
        return;
    }
    Hbbtv_AL_MediaPlayerUnselectAVComponentByType(m_hPlayer, type);
}

void VideoPlugin::onSelectedComponentChangedFun(int type) {
    LOG("type = %d\n\n", type);
    static_cast<void>(callHandler(*this, onSelectedComponentChanged, intVariant(type)));
}
