// A seek to before the beginning ends the process.
#include "Broken.h"

#include <cstdlib>

BROKEN int Hbbtv_AL_MediaPlayerSeek(int player, int ms) {
    if (ms < 0) {
        std::abort();
    }
    return NEXT(Hbbtv_AL_MediaPlayerSeek)(player, ms);
}
