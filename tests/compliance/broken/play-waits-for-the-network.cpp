// Play returns when the media has come, or has not.
#include "Broken.h"

#include <atomic>

static std::atomic<bool> waits{false};

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    listener.report(event, code, data);
    if (event == eMEDIA_CALLBACK_PLAYING || event == eMEDIA_CALLBACK_ERROR) {
        waits = false;
    }
}

BROKEN int Hbbtv_AL_MediaPlayerPlay(int player, int mode) {
    waits = true;
    const int result = NEXT(Hbbtv_AL_MediaPlayerPlay)(player, mode);
    for (int i = 0; result != 0 && waits && i < 1200; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return result;
}
