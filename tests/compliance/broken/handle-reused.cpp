// A player that was closed is kept and given out again.
#include "Broken.h"

#include <vector>

static std::vector<int> kept;
static int opened = 0;

BROKEN int Hbbtv_AL_MediaPlayerOpen(int* player) {
    ++opened;
    if (kept.empty()) {
        return NEXT(Hbbtv_AL_MediaPlayerOpen)(player);
    }
    *player = kept.back();
    kept.pop_back();
    return 1;
}

BROKEN int Hbbtv_AL_MediaPlayerClose(int player) {
    constexpr int LATER = 20; // not at once, so that a closed handle is refused as it should be
    if (opened < LATER) {
        return NEXT(Hbbtv_AL_MediaPlayerClose)(player);
    }
    kept.push_back(player);
    return 1;
}
