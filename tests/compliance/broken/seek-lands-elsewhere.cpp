// A seek goes five seconds too far.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerSeek(int player, int ms) {
    const bool isFar = ms >= 12'000 && ms <= 22'000;
    return NEXT(Hbbtv_AL_MediaPlayerSeek)(player, isFar ? ms + 5000 : ms);
}
