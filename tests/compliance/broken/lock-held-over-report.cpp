// A lock of the layer's functions is held during a report.
#include "Broken.h"

static std::mutex mutex;

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    const std::lock_guard<std::mutex> lock(mutex);
    listener.report(event, code, data);
}

BROKEN int64_t Hbbtv_AL_MediaPlayerGetPosition(int player) {
    const std::lock_guard<std::mutex> lock(mutex);
    return NEXT(Hbbtv_AL_MediaPlayerGetPosition)(player);
}
