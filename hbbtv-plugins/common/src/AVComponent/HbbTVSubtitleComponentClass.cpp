#include "AVComponent/HbbTVSubtitleComponentClass.h"

#include "ComponentScriptObject.h"

const char* const HbbTVSubtitleComponentClass::propertyNames[propertyCount] = {COMMON_COMPONENT_PROPERTY_NAMES,
                                                                               "language", "hearingImpaired"};

void initializeSubtitleComponentNPClass() {
    ComponentScriptObject<HbbTVSubtitleComponentClass>::initialize();
}

HbbTVSubtitleComponentClass::HbbTVSubtitleComponentClass(NPP* instance, const Hbbtv_AL_ComponentInfo& info)
    : m_SubtitleComponent(&m_record), m_record(), m_common(), m_info(info), m_JSObject(nullptr) {
    fillCommonComponent(m_info, &m_common);
    m_record.avComponent = &m_common;
    m_record.language = m_info.language;
    m_record.hearingImpaired = m_info.hearingImpaired;
    m_JSObject = ComponentScriptObject<HbbTVSubtitleComponentClass>::create(
        *instance, NPOBJECT_SUBTITLE_COMPONENT_CLASS, info.pid, this);
}

HbbTVSubtitleComponentClass::~HbbTVSubtitleComponentClass() {
    detachRecord(m_JSObject);
}

AVSubtitleComponent* HbbTVSubtitleComponentClass::getSubtitleComponent() {
    return m_SubtitleComponent;
}

NPObject* HbbTVSubtitleComponentClass::getNPObject() {
    return reinterpret_cast<NPObject*>(m_JSObject);
}

bool HbbTVSubtitleComponentClass::readScriptProperty(int index, NPVariant* result) {
    if (index < COMPONENT_PROPERTY_COMMON_COUNT) {
        return readCommonComponent(m_common, index, result);
    }
    if (index == COMPONENT_PROPERTY_COMMON_COUNT) {
        return makeString(m_record.language, result);
    }
    BOOLEAN_TO_NPVARIANT(m_record.hearingImpaired != 0, *result);
    return true;
}
