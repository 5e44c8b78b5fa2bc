// A report comes when the callback was removed and the player is still open.
#include "Broken.h"

#include <atomic>

static std::atomic<int> lastRemoved{-1};

BROKEN int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    const int result = NEXT(Hbbtv_AL_MediaPlayerRemoveCallback)(player);
    lastRemoved = player;
    broken::later(300, [player] {
        if (lastRemoved == player) {
            broken::listenerOf(player).report(eMEDIA_CALLBACK_STOPPED);
        }
    });
    return result;
}

BROKEN int Hbbtv_AL_MediaPlayerClose(int player) {
    lastRemoved = -1;
    return NEXT(Hbbtv_AL_MediaPlayerClose)(player);
}
