/** What the descriptors of an MPEG transport stream say and GStreamer's tags do not. */
#ifndef MEDIA_CONTROL_TRANSPORTSTREAMINFO_H
#define MEDIA_CONTROL_TRANSPORTSTREAMINFO_H

#include "GuardedMutex.h"

#include <map>
#include <string>

namespace media {

/** The descriptors of one elementary stream. */
struct StreamDescriptors {
    int componentTag = -1; /**< of the stream identifier descriptor (EN 300 468), -1 for none */
    bool audioDescription = false;
};

/** The descriptors of a media item's streams: a streaming thread fills them in, others read them. Threads: any. */
class TransportStreamInfo {
public:
    void set(int pid, const StreamDescriptors& descriptors);

    /** @param stream the id that GStreamer's demuxer gives a stream: it ends in "/" and the PID in hexadecimal digits
     */
    StreamDescriptors of(const std::string& stream) const;

private:
    mutable support::Mutex m_mutex;
    std::map<int, StreamDescriptors> m_descriptors GUARDED_BY(m_mutex); // by PID
};

} // namespace media

#endif
