// Play reports before it returns.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerPlay(int player, int mode) {
    broken::listenerOf(player).report(eMEDIA_CALLBACK_STOPPED);
    return NEXT(Hbbtv_AL_MediaPlayerPlay)(player, mode);
}
