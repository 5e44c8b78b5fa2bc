// Play agrees for a handle that is not open.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerPlay(int player, int mode) {
    return player == -1 ? 1 : NEXT(Hbbtv_AL_MediaPlayerPlay)(player, mode);
}
