// A second callback does not take the place of the first.
#include "Broken.h"

#include <set>

static std::set<int> haveOne;

BROKEN int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback, void* userData) {
    if (!haveOne.insert(player).second) {
        return 0;
    }
    return NEXT(Hbbtv_AL_MediaPlayerAddCallback)(player, callback, userData);
}
