// The television's user agent is not sent.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerSetUserAgent(int /*player*/) {
    return 1;
}
