// A report comes when the player is gone.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    return NEXT(Hbbtv_AL_MediaPlayerRemoveCallback)(player);
}

BROKEN int Hbbtv_AL_MediaPlayerClose(int player) {
    const broken::Listener listener = broken::listenerOf(player);
    const int result = NEXT(Hbbtv_AL_MediaPlayerClose)(player);
    broken::later(300, [listener] { listener.report(eMEDIA_CALLBACK_STOPPED); });
    return result;
}
