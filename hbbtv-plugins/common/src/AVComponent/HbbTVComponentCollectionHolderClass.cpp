#include "AVComponent/HbbTVComponentCollectionHolderClass.h"

void initializeComponentCollectionHolderNPClass() {
    initializeComponentCollectionNPClass();
    initializeVideoComponentNPClass();
    initializeAudioComponentNPClass();
    initializeSubtitleComponentNPClass();
}

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
    return upToDate(m_AvailableAudioComponents);
}

NPObject* HbbTVComponentCollectionHolderClass::getAvailableVideoComponents() {
    return upToDate(m_AvailableVideoComponents);
}

NPObject* HbbTVComponentCollectionHolderClass::getAvailableSubtitleComponents() {
    return upToDate(m_AvailableSubtitleComponents);
}

NPObject* HbbTVComponentCollectionHolderClass::getAvailableAllComponents() {
    return upToDate(m_AvailableAllComponents);
}

NPObject* HbbTVComponentCollectionHolderClass::getActiveAudioComponents() {
    return upToDate(m_ActiveAudioComponents);
}

NPObject* HbbTVComponentCollectionHolderClass::getActiveVideoComponents() {
    return upToDate(m_ActiveVideoComponents);
}

NPObject* HbbTVComponentCollectionHolderClass::getActiveSubtitleComponents() {
    return upToDate(m_ActiveSubtitleComponents);
}

NPObject* HbbTVComponentCollectionHolderClass::upToDate(HbbTVComponentCollectionClass& collection) {
    return collection.update(m_player) ? collection.getNPObject() : nullptr;
}
