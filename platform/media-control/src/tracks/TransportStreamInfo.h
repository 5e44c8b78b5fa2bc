/** What an MPEG transport stream says of its streams and GStreamer's tags do not. Threads: any. */
#ifndef MEDIA_CONTROL_TRANSPORTSTREAMINFO_H
#define MEDIA_CONTROL_TRANSPORTSTREAMINFO_H

#include <map>
#include <mutex>
#include <string>

namespace media {

struct StreamMarks {
    int componentTag = -1; /**< of the stream identifier descriptor (EN 300 468), -1 for none */
    bool audioDescription = false;
};

class TransportStreamInfo {
public:
    void set(int pid, const StreamMarks& marks);

    /** @param stream id that GStreamer's demuxer gives a stream: it ends in "/" and the PID in hexadecimal digits */
    StreamMarks of(const std::string& stream) const;

private:
    mutable std::mutex m_mutex; // guards all below
    std::map<int, StreamMarks> m_marks;
};

} // namespace media

#endif
