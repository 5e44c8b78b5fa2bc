#include "AVComponent/HbbTVAudioComponentClass.h"

#include "ComponentScriptObject.h"

const char* const HbbTVAudioComponentClass::propertyNames[propertyCount] = {COMMON_COMPONENT_PROPERTY_NAMES, "language",
                                                                            "audioDescription", "audioChannels"};

void initializeAudioComponentNPClass() {
    ComponentScriptObject<HbbTVAudioComponentClass>::initialize();
}

HbbTVAudioComponentClass::HbbTVAudioComponentClass(NPP* instance, const Hbbtv_AL_ComponentInfo& info)
    : m_AudioComponent(&m_record), m_record(), m_common(), m_info(info), m_JSObject(nullptr) {
    fillCommonComponent(m_info, &m_common);
    m_record.avComponent = &m_common;
    m_record.language = m_info.language;
    m_record.audioDescription = m_info.audioDescription;
    m_record.audioChannels = m_info.audioChannels;
    m_JSObject = ComponentScriptObject<HbbTVAudioComponentClass>::create(*instance, NPOBJECT_AUDIO_COMPONENT_CLASS,
                                                                         info.pid, this);
}

HbbTVAudioComponentClass::~HbbTVAudioComponentClass() {
    detachRecord(m_JSObject);
}

AVAudioComponent* HbbTVAudioComponentClass::getAudioComponent() {
    return m_AudioComponent;
}

NPObject* HbbTVAudioComponentClass::getNPObject() {
    return reinterpret_cast<NPObject*>(m_JSObject);
}

bool HbbTVAudioComponentClass::readScriptProperty(int index, NPVariant* result) {
    if (index < COMPONENT_PROPERTY_COMMON_COUNT) {
        return readCommonComponent(m_common, index, result);
    }
    switch (index) {
    case COMPONENT_PROPERTY_COMMON_COUNT:
        return makeString(m_record.language, result);
    case COMPONENT_PROPERTY_COMMON_COUNT + 1:
        BOOLEAN_TO_NPVARIANT(m_record.audioDescription != 0, *result);
        return true;
    default:
        INT32_TO_NPVARIANT(m_record.audioChannels, *result);
        return true;
    }
}
