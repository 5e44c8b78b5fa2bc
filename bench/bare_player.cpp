/** Plays an address with GStreamer's playbin3 alone, scales its frames to the screen's size and discards them. */
#include <cstdio>
#include <gst/gst.h>
#include <memory>
#include <string>

namespace {

// Drops frames at the same lateness as the television, so that both drop the same frames on a busy machine.
constexpr const char* PIPELINE = "playbin3 name=player audio-sink=\"fakesink sync=true\" "
                                 "video-sink=\"videoconvertscale ! video/x-raw,format=BGRx,width=1280,height=720 ! "
                                 "fakesink sync=true qos=true max-lateness=20000000\"";

template <typename Object> struct Unref {
    void operator()(Object* object) const { gst_object_unref(object); }
};

struct FreeMessage {
    void operator()(GstMessage* message) const { gst_message_unref(message); }
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: bare-player ADDRESS\n");
        return 2;
    }
    gst_init(nullptr, nullptr);
    GError* problem = nullptr;
    const std::unique_ptr<GstElement, Unref<GstElement>> player(gst_parse_launch(PIPELINE, &problem));
    if (!player || problem) {
        std::fprintf(stderr, "bare-player: %s\n", problem ? problem->message : "no pipeline");
        return 1;
    }
    g_object_set(player.get(), "uri", argv[1], nullptr);
    gst_element_set_state(player.get(), GST_STATE_PLAYING);
    const std::unique_ptr<GstBus, Unref<GstBus>> bus(gst_element_get_bus(player.get()));
    const std::unique_ptr<GstMessage, FreeMessage> last(gst_bus_timed_pop_filtered(
        bus.get(), GST_CLOCK_TIME_NONE, static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
    const bool ended = GST_MESSAGE_TYPE(last.get()) == GST_MESSAGE_EOS;
    if (!ended) {
        gst_message_parse_error(last.get(), &problem, nullptr);
        std::fprintf(stderr, "bare-player: cannot play %s: %s\n", argv[1], problem->message);
    }
    gst_element_set_state(player.get(), GST_STATE_NULL);
    return ended ? 0 : 1;
}
