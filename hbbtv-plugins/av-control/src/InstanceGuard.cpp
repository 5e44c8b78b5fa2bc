#include "InstanceGuard.h"

InstanceGuard* InstanceGuard::s_innermost = nullptr;

InstanceGuard::InstanceGuard(VideoPlugin* instance) : m_instance(instance), m_outer(s_innermost) {
    s_innermost = this;
}

InstanceGuard::~InstanceGuard() {
    s_innermost = m_outer;
}

void InstanceGuard::instanceDeleted(const VideoPlugin* instance) {
    for (InstanceGuard* guard = s_innermost; guard; guard = guard->m_outer) {
        if (guard->m_instance == instance) {
            guard->m_instance = nullptr;
        }
    }
}
