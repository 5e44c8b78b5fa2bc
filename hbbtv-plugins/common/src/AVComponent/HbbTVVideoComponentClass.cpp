#include "AVComponent/HbbTVVideoComponentClass.h"

#include "ComponentScriptObject.h"

const char* const HbbTVVideoComponentClass::propertyNames[propertyCount] = {COMMON_COMPONENT_PROPERTY_NAMES,
                                                                            "aspectRatio"};

void initializeVideoComponentNPClass() {
    ComponentScriptObject<HbbTVVideoComponentClass>::initialize();
}

HbbTVVideoComponentClass::HbbTVVideoComponentClass(NPP* instance, const Hbbtv_AL_ComponentInfo& info)
    : m_VideoComponent(&m_record), m_record(), m_common(), m_info(info), m_JSObject(nullptr) {
    fillCommonComponent(m_info, &m_common);
    m_record.avComponent = &m_common;
    m_record.aspectRatio = m_info.aspectRatio;
    m_JSObject = ComponentScriptObject<HbbTVVideoComponentClass>::create(*instance, NPOBJECT_VIDEO_COMPONENT_CLASS,
                                                                         info.pid, this);
}

HbbTVVideoComponentClass::~HbbTVVideoComponentClass() {
    detachRecord(m_JSObject);
}

AVVideoComponent* HbbTVVideoComponentClass::getVideoComponent() {
    return m_VideoComponent;
}

NPObject* HbbTVVideoComponentClass::getNPObject() {
    return reinterpret_cast<NPObject*>(m_JSObject);
}

bool HbbTVVideoComponentClass::readScriptProperty(int index, NPVariant* result) {
    if (index < COMPONENT_PROPERTY_COMMON_COUNT) {
        return readCommonComponent(m_common, index, result);
    }
    DOUBLE_TO_NPVARIANT(m_record.aspectRatio, *result);
    return m_record.aspectRatio > 0;
}
