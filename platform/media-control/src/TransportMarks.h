/** What an MPEG transport stream says of its streams and GStreamer's tags do not. Threads: any. */
#ifndef MEDIA_CONTROL_TRANSPORTMARKS_H
#define MEDIA_CONTROL_TRANSPORTMARKS_H

#include <gst/gst.h>
#include <map>
#include <string>

namespace media {

struct StreamMarks {
    int componentTag = -1; /**< of the stream identifier descriptor (EN 300 468), -1 for none */
    bool audioDescription = false;
};

/** By the end of the id that GStreamer's demuxer gives a stream: "/" and its PID in eight hexadecimal digits. */
using TransportMarks = std::map<std::string, StreamMarks>;

/** @param message an element message @return empty unless it brings a program map */
TransportMarks readTransportMarks(GstMessage* message);

} // namespace media

#endif
