#include "gst/AppSink.h"

#include <gst/app/gstappsink.h>
#include <utility>

namespace media {
namespace {

GstFlowReturn handle(GstAppSink* sink, GstSample* sample, gpointer handler) {
    if (!sample) {
        return GST_FLOW_OK; // flushed meanwhile
    }
    return (*static_cast<SampleHandler*>(handler))(GST_ELEMENT(sink), SamplePtr(sample));
}

GstFlowReturn onSample(GstAppSink* sink, gpointer handler) {
    return handle(sink, gst_app_sink_pull_sample(sink), handler);
}

GstFlowReturn onPrerollSample(GstAppSink* sink, gpointer handler) {
    return handle(sink, gst_app_sink_pull_preroll(sink), handler);
}

} // namespace

void handleSamples(GstElement* appSink, PrerollSamples prerollSamples, SampleHandler handler) {
    GstAppSinkCallbacks callbacks = {};
    callbacks.new_sample = &onSample;
    callbacks.new_preroll = prerollSamples == PrerollSamples::HANDLED ? &onPrerollSample : nullptr;
    gst_app_sink_set_callbacks(GST_APP_SINK(appSink), &callbacks, new SampleHandler(std::move(handler)),
                               &deleteUserData<SampleHandler>);
}

GstElement* makeAppSink(SampleHandler handler) {
    GstElement* sink = gst_element_factory_make("appsink", nullptr);
    if (sink) {
        g_object_set(sink, "sync", FALSE, "async", FALSE, nullptr);
        handleSamples(sink, PrerollSamples::IGNORED, std::move(handler));
    }
    return sink;
}

} // namespace media
