#include "sinks/VideoSink.h"

#include "gst/AppSink.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace media {
namespace {

// A page may ask for a window of any size; larger frames are left to the compositor to scale.
constexpr double MAX_PIXELS = 1920.0 * 1080.0;

// First the size, with letterbox, then the colours: each has a fast path, which one element for both has not. The sink
// drops frames that come more than 20 ms late. The filter changes its caps with the next frame: at once, a frame of the
// former size that is on its way would end the playback.
constexpr const char* DESCRIPTION = "videoscale add-borders=true ! capsfilter name=filter caps-change-mode=delayed ! "
                                    "videoconvert ! video/x-raw,format=BGRx ! "
                                    "appsink name=sink max-buffers=1 drop=true qos=true max-lateness=20000000";

} // namespace

VideoSink::VideoSink(const std::shared_ptr<VideoOutput>& output, PlaybackId playback) : m_output(output) {
    GstElement* made =
        gst_parse_bin_from_description_full(DESCRIPTION, TRUE, nullptr, GST_PARSE_FLAG_FATAL_ERRORS, nullptr);
    if (!made) {
        return;
    }
    m_bin.reset(GST_ELEMENT(gst_object_ref_sink(made)));
    const ElementPtr filter(gst_bin_get_by_name(GST_BIN(made), "filter"));
    const ElementPtr sink(gst_bin_get_by_name(GST_BIN(made), "sink"));
    m_filter = filter.get();
    m_sink = sink.get();
    handleSamples(m_sink, PrerollSamples::HANDLED, [output, playback](GstElement*, SamplePtr sample) {
        output->present(playback, std::move(sample));
        return GST_FLOW_OK;
    });
    fitWindow();
}

void VideoSink::fitWindow() {
    const CapsPtr caps(gst_caps_from_string("video/x-raw,pixel-aspect-ratio=1/1"));
    const MediaPictureWindow window = m_output->window();
    if (window.width > 0 && window.height > 0) {
        const double pixels = static_cast<double>(window.width) * window.height;
        const double scale = std::min(1.0, std::sqrt(MAX_PIXELS / pixels));
        const auto scaled = [scale](int size) { return std::max(1, static_cast<int>(std::lround(size * scale))); };
        gst_caps_set_simple(caps.get(), "width", G_TYPE_INT, scaled(window.width), "height", G_TYPE_INT,
                            scaled(window.height), nullptr);
    }
    g_object_set(m_filter, "caps", caps.get(), nullptr);
}

} // namespace media
