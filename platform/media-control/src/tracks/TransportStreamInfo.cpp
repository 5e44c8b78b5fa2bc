#include "tracks/TransportStreamInfo.h"

#include <cstdlib>

namespace media {

void TransportStreamInfo::set(int pid, const StreamDescriptors& descriptors) {
    const support::Lock lock(m_mutex);
    m_descriptors[pid] = descriptors;
}

StreamDescriptors TransportStreamInfo::of(const std::string& stream) const {
    const size_t slash = stream.rfind('/');
    if (slash == std::string::npos) {
        return {};
    }
    char* end = nullptr;
    const long pid = std::strtol(stream.c_str() + slash + 1, &end, 16);
    const support::Lock lock(m_mutex);
    const auto found = *end == '\0' ? m_descriptors.find(static_cast<int>(pid)) : m_descriptors.end();
    return found == m_descriptors.end() ? StreamDescriptors() : found->second;
}

} // namespace media
