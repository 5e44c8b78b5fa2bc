// Each player leaves a kilobyte behind.
#include "Broken.h"

#include <cstdlib>

static void* volatile lastBlock = nullptr;

BROKEN int Hbbtv_AL_MediaPlayerClose(int player) {
    lastBlock = std::malloc(1024);
    return NEXT(Hbbtv_AL_MediaPlayerClose)(player);
}
