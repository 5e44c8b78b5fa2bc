/** What the broken platforms are made of: each overrides a few functions of the good one and calls it by NEXT. */
#ifndef COMPLIANCE_BROKEN_H
#define COMPLIANCE_BROKEN_H

#include "hbbtvMsg.h"
#include "media_sync_global.h"
#include "medialib_components.h"
#include "tos_log.h"

#include <chrono>
#include <dlfcn.h>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

/** The function of the good platform. */
// NOLINTNEXTLINE(bugprone-macro-parentheses): the name of a function, which must stand alone
#define NEXT(function) reinterpret_cast<decltype(&function)>(dlsym(RTLD_NEXT, #function))

/** Before the definition of a function of the platform. */
#define BROKEN extern "C" __attribute__((visibility("default")))

namespace broken {

/** Who gets the reports of a player. */
struct Listener {
    int player = -1;
    Hbbtv_AL_MediaPlayerCallback callback = nullptr;
    void* userData = nullptr;

    void report(eMEDIA_CALLBACK_EVENT event, int code = 0, void* data = nullptr) const {
        if (callback) {
            callback(static_cast<unsigned int>(player), event, code, data, userData);
        }
    }
};

/**
 * Gets each report of the good platform instead of the listener. Passes it on unless a platform defines its own.
 * Thread: the player's.
 */
void alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data);

/** @return the listener that AddCallback set last, without a callback when there was none */
Listener listenerOf(int player);

/** Runs something on a thread of its own after a while. */
inline void later(int milliseconds, std::function<void()> action) {
    std::thread([milliseconds, action = std::move(action)] {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        action();
    }).detach();
}

} // namespace broken

#endif
