// The function of media_trace.h.
#include "media_trace.h"

#include "MediaControlExport.h"
#include "trace/MediaTrace.h"

MEDIA_EXPORT void mediaTraceSetCallback(MediaTraceCallback callback, void* userData) {
    media::setTraceObserver(callback, userData);
}
