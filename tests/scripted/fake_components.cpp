// The list of components, which only some platforms have.
#include "fake_player.h"
#include "points.h"

#include <gtest/gtest.h>

#include <string.h>

extern "C" int Hbbtv_AL_MediaPlayerGetComponents(int player, int type, Hbbtv_AL_ComponentInfo* list, int capacity) {
    const fake::NumberPoint point("GetComponents");
    EXPECT_TRUE(fake::television().players.count(player));
    int count = 0;
    for (const Hbbtv_AL_ComponentInfo& info : fake::television().components) {
        if (info.type == type && count++ < capacity) {
            list[count - 1] = info;
        }
    }
    if (point.odd()) { // texts without an end
        memset(static_cast<void*>(list), 'x', static_cast<size_t>(capacity) * sizeof *list);
    }
    return point.answer(count);
}
