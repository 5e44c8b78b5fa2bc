// Stop of a player that connects waits for the connection.
#include "Broken.h"

#include <atomic>

using Clock = std::chrono::steady_clock;

static std::atomic<int> connecting{-1}; // the player that does
static Clock::time_point started;

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    listener.report(event, code, data);
    if (event != eMEDIA_CALLBACK_CONNECTING && connecting == listener.player) {
        connecting = -1;
    }
}

BROKEN int Hbbtv_AL_MediaPlayerPlay(int player, int mode) {
    connecting = player;
    started = Clock::now();
    return NEXT(Hbbtv_AL_MediaPlayerPlay)(player, mode);
}

BROKEN int Hbbtv_AL_MediaPlayerStop(int player) {
    if (connecting == player && Clock::now() - started > std::chrono::milliseconds(200)) {
        connecting = -1;
        std::this_thread::sleep_for(std::chrono::seconds(7));
    }
    return NEXT(Hbbtv_AL_MediaPlayerStop)(player);
}
