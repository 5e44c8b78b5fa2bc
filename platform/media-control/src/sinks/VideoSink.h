/** The way of decoded frames out of the pipeline, into a VideoOutput. */
#ifndef MEDIA_CONTROL_VIDEOSINK_H
#define MEDIA_CONTROL_VIDEOSINK_H

#include "gst/GstPointer.h"
#include "sinks/VideoOutput.h"

#include <memory>

namespace media {

/** Elements that scale frames to the window and convert them to BGRx. Thread: the player's. */
class VideoSink {
public:
    /** @param output gets the playback's frames */
    VideoSink(const std::shared_ptr<VideoOutput>& output, PlaybackId playback);

    /** @return the element to put into the pipeline, or null when a GStreamer element is missing */
    GstElement* element() const { return m_bin.get(); }

    /** @return the element in it that gets the frames */
    GstElement* sink() const { return m_sink; }

    /** Scales the frames that come from now on to the output's window. */
    void fitWindow();

private:
    const std::shared_ptr<VideoOutput> m_output;
    ElementPtr m_bin;
    GstElement* m_filter = nullptr; // the bin owns this one and m_sink
    GstElement* m_sink = nullptr;
};

} // namespace media

#endif
