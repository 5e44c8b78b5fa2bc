#include "tracks/TransportStreamInfo.h"

#include <cstdlib>

namespace media {

void TransportStreamInfo::set(int pid, const StreamMarks& marks) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_marks[pid] = marks;
}

StreamMarks TransportStreamInfo::of(const std::string& stream) const {
    const size_t slash = stream.rfind('/');
    if (slash == std::string::npos) {
        return {};
    }
    char* end = nullptr;
    const long pid = std::strtol(stream.c_str() + slash + 1, &end, 16);
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = *end == '\0' ? m_marks.find(static_cast<int>(pid)) : m_marks.end();
    return found == m_marks.end() ? StreamMarks() : found->second;
}

} // namespace media
