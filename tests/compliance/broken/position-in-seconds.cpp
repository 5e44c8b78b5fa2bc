// Positions are seconds.
#include "Broken.h"

BROKEN int64_t Hbbtv_AL_MediaPlayerGetPosition(int player) {
    const int64_t position = NEXT(Hbbtv_AL_MediaPlayerGetPosition)(player);
    return position < 0 ? position : position / 1000;
}
