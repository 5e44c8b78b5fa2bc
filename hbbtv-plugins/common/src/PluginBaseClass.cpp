#include "PluginBaseClass.h"

#include "InstanceWatch.h"

PluginBaseClass::PluginBaseClass() : m_pNPInstance(nullptr) {}

PluginBaseClass::~PluginBaseClass() {
    InstanceWatch::instanceDeleted(&m_pNPInstance);
}

NPP* PluginBaseClass::getNPP() {
    return &m_pNPInstance;
}
