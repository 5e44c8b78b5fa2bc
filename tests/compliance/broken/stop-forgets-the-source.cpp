// After Stop, Play is refused until a source is named again.
#include "Broken.h"

#include <atomic>

static std::atomic<bool> hasSource{false};

BROKEN int Hbbtv_AL_MediaPlayerSetSource(int player, const char* url) {
    hasSource = true;
    return NEXT(Hbbtv_AL_MediaPlayerSetSource)(player, url);
}

BROKEN int Hbbtv_AL_MediaPlayerStop(int player) {
    hasSource = false;
    return NEXT(Hbbtv_AL_MediaPlayerStop)(player);
}

BROKEN int Hbbtv_AL_MediaPlayerPlay(int player, int mode) {
    return hasSource ? NEXT(Hbbtv_AL_MediaPlayerPlay)(player, mode) : 0;
}
