// Stands between the good platform's reports and whoever listens to them.
#include "Broken.h"

#include <map>

namespace broken {
namespace {

std::mutex mutex; // guards `listeners`
std::map<int, Listener> listeners;

void receive(unsigned int /*playerId*/, eMEDIA_CALLBACK_EVENT event, int code, void* data, void* userData) {
    alterReport(*static_cast<const Listener*>(userData), event, code, data);
}

} // namespace

__attribute__((weak)) void alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    listener.report(event, code, data);
}

Listener listenerOf(int player) {
    const std::lock_guard<std::mutex> lock(mutex);
    return listeners[player];
}

} // namespace broken

// Weak: a platform may define its own.
BROKEN __attribute__((weak)) int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback,
                                                                 void* userData) {
    // A report may be under way when the player is gone: its listener is never freed.
    auto* listener = new broken::Listener{player, callback, userData};
    {
        const std::lock_guard<std::mutex> lock(broken::mutex);
        broken::listeners[player] = *listener;
    }
    return NEXT(Hbbtv_AL_MediaPlayerAddCallback)(player, &broken::receive, listener);
}

BROKEN __attribute__((weak)) int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    {
        const std::lock_guard<std::mutex> lock(broken::mutex);
        broken::listeners.erase(player);
    }
    return NEXT(Hbbtv_AL_MediaPlayerRemoveCallback)(player);
}
