// A seek only changes the number that GetPosition returns.
#include "Broken.h"

#include <atomic>

static std::atomic<int64_t> offset{0};

BROKEN int Hbbtv_AL_MediaPlayerSeek(int player, int ms) {
    const int64_t position = NEXT(Hbbtv_AL_MediaPlayerGetPosition)(player);
    if (position < 0 || ms < 0) {
        return NEXT(Hbbtv_AL_MediaPlayerSeek)(player, ms);
    }
    offset = ms - position;
    const int speed = NEXT(Hbbtv_AL_MediaPlayerGetSpeed)(player);
    broken::later(20, [player, speed] {
        broken::listenerOf(player).report(eMEDIA_CALLBACK_POSITION_CHANGED);
        if (speed != 0) {
            broken::listenerOf(player).report(eMEDIA_CALLBACK_PLAYING);
        }
    });
    return 1;
}

BROKEN int64_t Hbbtv_AL_MediaPlayerGetPosition(int player) {
    const int64_t position = NEXT(Hbbtv_AL_MediaPlayerGetPosition)(player);
    return position < 0 ? position : position + offset;
}

BROKEN int Hbbtv_AL_MediaPlayerStop(int player) {
    offset = 0;
    return NEXT(Hbbtv_AL_MediaPlayerStop)(player);
}
