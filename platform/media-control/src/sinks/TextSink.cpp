#include "sinks/TextSink.h"

#include "gst/AppSink.h"

namespace media {

GstElement* makeTextSink(const std::shared_ptr<Subtitles>& subtitles, PlaybackId playback) {
    return makeAppSink([subtitles, playback](GstElement* sink, SamplePtr sample) {
        const PadPtr pad(gst_element_get_static_pad(sink, "sink"));
        const TextPtr stream(gst_pad_get_stream_id(pad.get()));
        if (stream) {
            subtitles->addStreamCue(playback, stream.get(), sample.get());
        }
        return GST_FLOW_OK;
    });
}

} // namespace media
