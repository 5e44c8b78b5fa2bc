// Pause reports PAUSED and plays on.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerPause(int player) {
    if (NEXT(Hbbtv_AL_MediaPlayerGetSpeed)(player) == 0) {
        return NEXT(Hbbtv_AL_MediaPlayerPause)(player);
    }
    broken::later(20, [player] { broken::listenerOf(player).report(eMEDIA_CALLBACK_PAUSED); });
    return 1;
}
