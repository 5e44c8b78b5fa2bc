#include "server/FaultyContent.h"

#include <algorithm>

namespace tv {

namespace {

constexpr int throttleStepMs = 50;
constexpr int stallStepMs = 100;

} // namespace

FaultyContent::FaultyContent(Read read, ServerFault fault, StopSignal& stop)
    : m_read(std::move(read)), m_fault(std::move(fault)), m_stop(stop) {}

bool FaultyContent::send(uint64_t offset, uint64_t length, httplib::DataSink& sink) {
    if (m_fault.cut && offset >= *m_fault.cut) {
        return false;
    }
    if (m_fault.stall && offset >= *m_fault.stall) {
        return m_stop.pause(stallStepMs) && sink.is_writable();
    }
    uint64_t count = std::min<uint64_t>(length, m_chunk.size());
    for (const auto& end : {m_fault.cut, m_fault.stall}) {
        count = end ? std::min(count, *end - offset) : count;
    }
    if (m_fault.bytesPerSecond > 0) {
        count = std::clamp<uint64_t>(m_fault.bytesPerSecond * throttleStepMs / 1000, 1, count);
    }
    const size_t read = m_read(offset, m_chunk.data(), count);
    if (read == 0 || !sink.write(m_chunk.data(), read)) {
        return false;
    }
    return m_fault.bytesPerSecond == 0 || m_stop.pause(static_cast<int>(read * 1000 / m_fault.bytesPerSecond));
}

} // namespace tv
