#include "server/StopSignal.h"

#include <chrono>

namespace tv {

bool StopSignal::pause(int milliseconds) {
    const support::Lock lock(m_mutex);
    return !m_changed.waitFor(m_mutex, std::chrono::milliseconds(milliseconds),
                              [this]() REQUIRES(m_mutex) { return m_isStopping; });
}

void StopSignal::stop() {
    {
        const support::Lock lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notifyAll();
}

} // namespace tv
