/** The way of decoded frames out of the pipeline: scaled to the window, as BGRx, into a Picture. */
#ifndef MEDIA_CONTROL_VIDEOSINK_H
#define MEDIA_CONTROL_VIDEOSINK_H

#include "gst/GstPointer.h"
#include "sinks/Picture.h"

#include <memory>

namespace media {

class VideoSink {
public:
    /** Builds the elements; `picture` gets the frames, marked with `playback`. */
    VideoSink(const std::shared_ptr<Picture>& picture, PlaybackId playback);

    /** The element to put into the pipeline, or null when a GStreamer element is missing. */
    GstElement* element() const { return m_bin.get(); }

    /** The bin's element that gets the frames. */
    GstElement* sink() const { return m_sink; }

    /** Scales the frames that come from now on to the picture's window. */
    void fitWindow();

private:
    const std::shared_ptr<Picture> m_picture;
    ElementPtr m_bin;
    GstElement* m_filter = nullptr; // this one and m_sink are the bin's
    GstElement* m_sink = nullptr;
};

} // namespace media

#endif
