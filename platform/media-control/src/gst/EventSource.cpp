#include "gst/EventSource.h"

#include <utility>

namespace media {
namespace {

using TimerCall = std::function<void()>;
using MessageCall = std::function<void(GstMessage*)>;

gboolean callOnce(gpointer call) {
    (*static_cast<TimerCall*>(call))();
    return G_SOURCE_REMOVE;
}

gboolean callAgain(gpointer call) {
    (*static_cast<TimerCall*>(call))();
    return G_SOURCE_CONTINUE;
}

gboolean callWithMessage(GstBus* /*bus*/, GstMessage* message, gpointer call) {
    (*static_cast<MessageCall*>(call))(message);
    return G_SOURCE_CONTINUE;
}

/** GLib keeps `call` until it has returned, also when the call ends its own source. */
template <typename Call>
SourcePtr attached(GSource* source, const PlayerThread& thread, GSourceFunc function, Call call) {
    g_source_set_callback(source, function, new Call(std::move(call)), &deleteUserData<Call>);
    g_source_attach(source, thread.context());
    return SourcePtr(source);
}

GSource* timer(std::chrono::milliseconds time) {
    return g_timeout_source_new(static_cast<guint>(time.count()));
}

} // namespace

SourcePtr callAfter(const PlayerThread& thread, std::chrono::milliseconds delay, TimerCall call) {
    return attached(timer(delay), thread, &callOnce, std::move(call));
}

SourcePtr callEvery(const PlayerThread& thread, std::chrono::milliseconds period, TimerCall call) {
    return attached(timer(period), thread, &callAgain, std::move(call));
}

SourcePtr watchBus(const PlayerThread& thread, GstElement* pipeline, MessageCall call) {
    const BusPtr bus(gst_element_get_bus(pipeline));
    return attached(gst_bus_create_watch(bus.get()), thread, G_SOURCE_FUNC(&callWithMessage), std::move(call));
}

} // namespace media
