// Every tenth player leaves a descriptor behind.
#include "Broken.h"

#include <fcntl.h>

BROKEN int Hbbtv_AL_MediaPlayerClose(int player) {
    if (player % 10 == 9) {
        open("/dev/null", O_RDONLY | O_CLOEXEC);
    }
    return NEXT(Hbbtv_AL_MediaPlayerClose)(player);
}
