/** Timers and bus watches on a player's thread. */
#ifndef MEDIA_CONTROL_EVENTSOURCE_H
#define MEDIA_CONTROL_EVENTSOURCE_H

#include "gst/GstPointer.h"
#include "gst/PlayerThread.h"

#include <chrono>
#include <functional>

namespace media {

// Each function returns the owner of the calls: none comes after it is reset, which the called function may do itself.
// Thread: the player's, for the functions, the calls and the end of the owner.

/** Calls once, after the time and never from here. */
SourcePtr callAfter(const PlayerThread& thread, std::chrono::milliseconds delay, std::function<void()> call);

/** Calls again and again, each time after the period. */
SourcePtr callEvery(const PlayerThread& thread, std::chrono::milliseconds period, std::function<void()> call);

/** Calls for each message of a pipeline's bus. A bus has one watch at a time. */
SourcePtr watchBus(const PlayerThread& thread, GstElement* pipeline, std::function<void(GstMessage*)> call);

} // namespace media

#endif
