// Durations are seconds.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerGetDuration(int player) {
    const int duration = NEXT(Hbbtv_AL_MediaPlayerGetDuration)(player);
    return duration < 0 ? duration : duration / 1000;
}
