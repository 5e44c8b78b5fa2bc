// Naming the next source ends the one that plays.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerSetSource(int player, const char* url) {
    NEXT(Hbbtv_AL_MediaPlayerStop)(player);
    return NEXT(Hbbtv_AL_MediaPlayerSetSource)(player, url);
}
