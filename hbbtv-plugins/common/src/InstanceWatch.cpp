#include "InstanceWatch.h"

InstanceWatch* InstanceWatch::s_innermost = nullptr;

InstanceWatch::InstanceWatch(const NPP* instance) : m_instance(instance), m_outer(s_innermost) {
    s_innermost = this;
}

InstanceWatch::~InstanceWatch() {
    s_innermost = m_outer;
}

void InstanceWatch::instanceDeleted(const NPP* instance) {
    for (InstanceWatch* watch = s_innermost; watch; watch = watch->m_outer) {
        if (watch->m_instance == instance) {
            watch->m_instance = nullptr;
        }
    }
}
