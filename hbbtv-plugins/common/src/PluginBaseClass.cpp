#include "PluginBaseClass.h"

PluginBaseClass::PluginBaseClass() : m_pNPInstance(nullptr) {}

PluginBaseClass::~PluginBaseClass() = default;

NPP* PluginBaseClass::getNPP() {
    return &m_pNPInstance;
}
