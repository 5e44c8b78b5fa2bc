// A stopped player reports that it plays.
#include "Broken.h"

#include <atomic>

static std::atomic<int> stops{0}; // also counts what makes a late report harmless

BROKEN int Hbbtv_AL_MediaPlayerStop(int player) {
    const int result = NEXT(Hbbtv_AL_MediaPlayerStop)(player);
    const int number = ++stops;
    broken::later(300, [player, number] {
        if (stops == number) {
            broken::listenerOf(player).report(eMEDIA_CALLBACK_PLAYING);
        }
    });
    return result;
}

BROKEN int Hbbtv_AL_MediaPlayerPlay(int player, int mode) {
    ++stops;
    return NEXT(Hbbtv_AL_MediaPlayerPlay)(player, mode);
}

BROKEN int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    ++stops;
    return NEXT(Hbbtv_AL_MediaPlayerRemoveCallback)(player);
}
