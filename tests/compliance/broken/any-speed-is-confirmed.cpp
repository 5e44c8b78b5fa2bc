// GetSpeed returns what was asked for, not what is in force.
#include "Broken.h"

#include <atomic>

static std::atomic<int> asked{0};

BROKEN int Hbbtv_AL_MediaPlayerSetSpeed(int player, double speed) {
    asked = static_cast<int>(speed);
    return NEXT(Hbbtv_AL_MediaPlayerSetSpeed)(player, speed);
}

BROKEN int Hbbtv_AL_MediaPlayerGetSpeed(int player) {
    return asked > 100 ? asked.load() : NEXT(Hbbtv_AL_MediaPlayerGetSpeed)(player);
}
