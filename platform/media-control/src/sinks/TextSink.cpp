#include "sinks/TextSink.h"

#include <gst/app/gstappsink.h>

namespace media {
namespace {

struct TextTarget {
    std::shared_ptr<Subtitles> subtitles;
    unsigned run;
};

GstFlowReturn onText(GstAppSink* sink, gpointer data) {
    const auto* target = static_cast<const TextTarget*>(data);
    const SamplePtr sample(gst_app_sink_pull_sample(sink));
    const PadPtr pad(gst_element_get_static_pad(GST_ELEMENT(sink), "sink"));
    const TextPtr stream(gst_pad_get_stream_id(pad.get()));
    if (sample && stream) {
        target->subtitles->addStreamCue(target->run, stream.get(), sample.get());
    }
    return GST_FLOW_OK;
}

} // namespace

GstElement* makeTextSink(const std::shared_ptr<Subtitles>& subtitles, unsigned run) {
    GstElement* sink = gst_element_factory_make("appsink", nullptr);
    if (sink) {
        // Text is rare: neither the first picture nor the clock must wait for it.
        g_object_set(sink, "sync", FALSE, "async", FALSE, nullptr);
        GstAppSinkCallbacks callbacks = {};
        callbacks.new_sample = &onText;
        gst_app_sink_set_callbacks(GST_APP_SINK(sink), &callbacks, new TextTarget{subtitles, run},
                                   &deleteUserData<TextTarget>);
    }
    return sink;
}

} // namespace media
