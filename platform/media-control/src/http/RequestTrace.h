/** The answers of web servers, for the observer of media_trace.h. */
#ifndef MEDIA_CONTROL_REQUESTTRACE_H
#define MEDIA_CONTROL_REQUESTTRACE_H

#include <gst/gst.h>

namespace media {

/** @param message an element message; those of other matters are ignored. Thread: any. */
void traceRequest(int player, GstMessage* message);

} // namespace media

#endif
