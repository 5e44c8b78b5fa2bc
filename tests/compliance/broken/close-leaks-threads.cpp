// Every fiftieth player leaves a thread behind.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerClose(int player) {
    constexpr int AN_HOUR = 3'600'000;
    if (player % 50 == 49) {
        broken::later(AN_HOUR, [] {});
    }
    return NEXT(Hbbtv_AL_MediaPlayerClose)(player);
}
