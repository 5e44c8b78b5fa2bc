/** Content that a server sends, up to the fault that it has. */
#ifndef FAULTYCONTENT_H
#define FAULTYCONTENT_H

#include "server/ServerFault.h"

#include <array>
#include <functional>
#include <httplib.h>

namespace tv {

/** Waits. @return false at once when the server ends */
using ServerPause = std::function<bool(int milliseconds)>;

class FaultyContent {
public:
    /**
     * @param offset in bytes from the content's beginning; each call goes on where the former ended, or starts anew
     * @param size   of `to`, at least 1
     * @return how many bytes were put there; 0 when there are no more
     */
    using Read = std::function<size_t(uint64_t offset, char* to, size_t size)>;

    /** @param pause is called on the server's thread */
    FaultyContent(Read read, ServerFault fault, ServerPause pause);

    /**
     * Sends some of the bytes from `offset` on.
     * @param length how many there are to send
     * @return false when the connection is to end
     */
    bool send(uint64_t offset, uint64_t length, httplib::DataSink& sink);

private:
    const Read m_read;
    const ServerFault m_fault;
    const ServerPause m_pause;
    std::array<char, 64 * size_t{1024}> m_chunk{};
};

} // namespace tv

#endif
