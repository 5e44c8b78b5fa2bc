/** Content that a server sends, up to the fault that it has. */
#ifndef FAULTYCONTENT_H
#define FAULTYCONTENT_H

#include "server/ServerFault.h"
#include "server/StopSignal.h"

#include <array>
#include <functional>
#include <httplib.h>

namespace tv {

/** The content of one HTTP response: cut, stalled or throttled as its fault says. */
class FaultyContent {
public:
    /**
     * @param offset in bytes from the content's beginning; each call continues where the former ended, or starts anew
     * @param size   of `to`, at least 1
     * @return how many bytes were put there; 0 when there are no more
     */
    using Read = std::function<size_t(uint64_t offset, char* to, size_t size)>;

    /** @param stop ends the waits of this content; must outlive it */
    FaultyContent(Read read, ServerFault fault, StopSignal& stop);

    /**
     * Sends some of the bytes from `offset` on. Thread: the server's.
     * @param length how many bytes there are to send
     * @return false when the connection must end
     */
    bool send(uint64_t offset, uint64_t length, httplib::DataSink& sink);

private:
    const Read m_read;
    const ServerFault m_fault;
    StopSignal& m_stop;
    std::array<char, 64 * size_t{1024}> m_chunk{};
};

} // namespace tv

#endif
