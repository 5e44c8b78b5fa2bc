/** The way of decoded frames out of the pipeline: scaled to the window, as BGRx, into a VideoOutput. */
#ifndef MEDIA_CONTROL_VIDEOSINK_H
#define MEDIA_CONTROL_VIDEOSINK_H

#include "gst/GstPointer.h"
#include "sinks/VideoOutput.h"

#include <memory>

namespace media {

class VideoSink {
public:
    /** Builds the elements; `output` gets the frames, marked with `playback`. */
    VideoSink(const std::shared_ptr<VideoOutput>& output, PlaybackId playback);

    /** The element to put into the pipeline, or null when a GStreamer element is missing. */
    GstElement* element() const { return m_bin.get(); }

    /** The bin's element that gets the frames. */
    GstElement* sink() const { return m_sink; }

    /** Scales the frames that come from now on to the output's window. */
    void fitWindow();

private:
    const std::shared_ptr<VideoOutput> m_output;
    ElementPtr m_bin;
    GstElement* m_filter = nullptr; // this one and m_sink are the bin's
    GstElement* m_sink = nullptr;
};

} // namespace media

#endif
