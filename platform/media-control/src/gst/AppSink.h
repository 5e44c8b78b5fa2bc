/** The samples of an appsink, GStreamer's way out of a pipeline. */
#ifndef MEDIA_CONTROL_APPSINK_H
#define MEDIA_CONTROL_APPSINK_H

#include "gst/GstPointer.h"

#include <functional>

namespace media {

/** Receives a sample of an appsink, on a streaming thread. @return GST_FLOW_EOS to receive no more */
using SampleHandler = std::function<GstFlowReturn(GstElement* sink, SamplePtr sample)>;

enum class PrerollSamples { IGNORED, HANDLED };

/** Hands each sample of an appsink to `handler`, and the first of a paused pipeline too when it is to be handled. */
void handleSamples(GstElement* appSink, PrerollSamples prerollSamples, SampleHandler handler);

/**
 * Makes an appsink that hands on its samples as soon as it has them; the clock and the preroll do not wait for it.
 * @return a floating element, or null when GStreamer lacks it
 */
GstElement* makeAppSink(SampleHandler handler);

} // namespace media

#endif
