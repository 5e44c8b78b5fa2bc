/** The HTTP responses that a source element reports, for the observer of media_trace.h. */
#ifndef MEDIA_CONTROL_REQUESTTRACE_H
#define MEDIA_CONTROL_REQUESTTRACE_H

#include <gst/gst.h>

namespace media {

/** @param message an element message; those that report no response are ignored. Thread: any. */
void traceRequest(int player, GstMessage* message);

} // namespace media

#endif
