// The list of components is written without looking at its room.
#include "Broken.h"

BROKEN int Hbbtv_AL_MediaPlayerGetComponents(int player, int type, Hbbtv_AL_ComponentInfo* components, int capacity) {
    constexpr int ROOM_OF_THE_CHECK = 2;
    return NEXT(Hbbtv_AL_MediaPlayerGetComponents)(player, type, components,
                                                   capacity == 1 ? ROOM_OF_THE_CHECK : capacity);
}
