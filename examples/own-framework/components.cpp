// Component collections of a television whose media have one track of each type: every collection is absent, and the
// page reads null.
#include "AVComponent/HbbTVComponentCollectionHolderClass.h"

// Never made here, but their owners' headers name them.
HbbTVAudioComponentClass::~HbbTVAudioComponentClass() = default;
HbbTVVideoComponentClass::~HbbTVVideoComponentClass() = default;
HbbTVSubtitleComponentClass::~HbbTVSubtitleComponentClass() = default;

AVAudioComponent* HbbTVAudioComponentClass::getAudioComponent() {
    return m_AudioComponent;
}

AVVideoComponent* HbbTVVideoComponentClass::getVideoComponent() {
    return m_VideoComponent;
}

AVSubtitleComponent* HbbTVSubtitleComponentClass::getSubtitleComponent() {
    return m_SubtitleComponent;
}

HbbTVComponentCollectionClass::HbbTVComponentCollectionClass(NPP* instance, eAVComponentCollectionType_e type)
    : m_instance(instance), m_type(type), m_length(0), m_JSObject(nullptr) {}

HbbTVComponentCollectionClass::~HbbTVComponentCollectionClass() = default;

void initializeComponentCollectionHolderNPClass() {}

HbbTVComponentCollectionHolderClass::HbbTVComponentCollectionHolderClass(NPP* instance)
    : m_AvailableAudioComponents(instance, AVAILABLE_AUDIO_COMPONENTS_COLLECTION),
      m_AvailableVideoComponents(instance, AVAILABLE_VIDEO_COMPONENTS_COLLECTION),
      m_AvailableSubtitleComponents(instance, AVAILABLE_SUBTITLE_COMPONENTS_COLLECTION),
      m_AvailableAllComponents(instance, AVAILABLE_ALL_COMPONENTS_COLLECTION),
      m_ActiveAudioComponents(instance, ACTIVE_AUDIO_COMPONENTS_COLLECTION),
      m_ActiveVideoComponents(instance, ACTIVE_VIDEO_COMPONENTS_COLLECTION),
      m_ActiveSubtitleComponents(instance, ACTIVE_SUBTITLE_COMPONENTS_COLLECTION), m_player(-1) {}

HbbTVComponentCollectionHolderClass::~HbbTVComponentCollectionHolderClass() = default;

void HbbTVComponentCollectionHolderClass::setAVComponentHandle(int player) {
    m_player = player;
}

NPObject* HbbTVComponentCollectionHolderClass::getAvailableAudioComponents() {
    return nullptr;
}

NPObject* HbbTVComponentCollectionHolderClass::getAvailableVideoComponents() {
    return nullptr;
}

NPObject* HbbTVComponentCollectionHolderClass::getAvailableSubtitleComponents() {
    return nullptr;
}

NPObject* HbbTVComponentCollectionHolderClass::getAvailableAllComponents() {
    return nullptr;
}

NPObject* HbbTVComponentCollectionHolderClass::getActiveAudioComponents() {
    return nullptr;
}

NPObject* HbbTVComponentCollectionHolderClass::getActiveVideoComponents() {
    return nullptr;
}

NPObject* HbbTVComponentCollectionHolderClass::getActiveSubtitleComponents() {
    return nullptr;
}
