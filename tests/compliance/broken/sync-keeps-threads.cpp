// Each report to the synchronisation adapter leaves a thread behind.
#include "Broken.h"

BROKEN int adapt_play_state_change(int player, int mediaType, int state) {
    static int calls = 0;
    if (++calls % 100 == 0) {
        broken::later(3'600'000, [] {});
    }
    return NEXT(adapt_play_state_change)(player, mediaType, state);
}
