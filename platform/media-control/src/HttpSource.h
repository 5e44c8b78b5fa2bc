/** What the player tells web servers. */
#ifndef MEDIA_CONTROL_HTTPSOURCE_H
#define MEDIA_CONTROL_HTTPSOURCE_H

#include <gst/gst.h>

namespace media {

/** Gives a GStreamer source the television's user agent, when it is one that has a user agent. Thread: any. */
void setTelevisionUserAgent(GstElement* source);

} // namespace media

#endif
