// A rectangle outside of the screen is refused.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerSetWindow(int player, int x, int y, int width, int height) {
    if (x < 0 || y < 0) {
        return 0;
    }
    return NEXT(Hbbtv_AL_MediaPlayerSetWindow)(player, x, y, width, height);
}
