// A player that is stopped already does not agree.
#include "Broken.h"

#include <atomic>

static std::atomic<bool> isStopped{false};

BROKEN int Hbbtv_AL_MediaPlayerPlay(int player, int mode) {
    isStopped = false;
    return NEXT(Hbbtv_AL_MediaPlayerPlay)(player, mode);
}

BROKEN int Hbbtv_AL_MediaPlayerStop(int player) {
    return isStopped.exchange(true) ? 0 : NEXT(Hbbtv_AL_MediaPlayerStop)(player);
}
