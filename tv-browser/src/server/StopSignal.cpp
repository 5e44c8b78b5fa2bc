#include "server/StopSignal.h"

#include <chrono>

namespace tv {

bool StopSignal::pause(int milliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    const support::Lock lock(m_mutex);
    while (!m_isStopping) {
        if (m_changed.wait_until(m_mutex, end) == std::cv_status::timeout) {
            return !m_isStopping;
        }
    }
    return false;
}

void StopSignal::stop() {
    {
        const support::Lock lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
}

} // namespace tv
