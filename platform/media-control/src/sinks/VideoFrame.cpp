#include "sinks/VideoFrame.h"

#include <gst/video/video.h>
#include <memory>
#include <utility>

namespace media {
namespace {

/** What MediaPicture::owner points to. */
struct MappedFrame {
    SamplePtr sample;
    GstVideoFrame frame;
};

int64_t streamTimeMs(GstSample* sample) {
    const GstClockTime time = gst_segment_to_stream_time(gst_sample_get_segment(sample), GST_FORMAT_TIME,
                                                         GST_BUFFER_PTS(gst_sample_get_buffer(sample)));
    return GST_CLOCK_TIME_IS_VALID(time) ? static_cast<int64_t>(time / GST_MSECOND) : 0;
}

} // namespace

bool mapFrame(SamplePtr sample, MediaPicture& frame) {
    auto mapped = std::make_unique<MappedFrame>();
    mapped->sample = std::move(sample);
    GstSample* source = mapped->sample.get();
    GstVideoInfo info;
    if (!gst_video_info_from_caps(&info, gst_sample_get_caps(source)) ||
        !gst_video_frame_map(&mapped->frame, &info, gst_sample_get_buffer(source), GST_MAP_READ)) {
        return false;
    }
    frame.pixels = static_cast<const unsigned char*>(GST_VIDEO_FRAME_PLANE_DATA(&mapped->frame, 0));
    frame.stride = GST_VIDEO_FRAME_PLANE_STRIDE(&mapped->frame, 0);
    frame.width = GST_VIDEO_FRAME_WIDTH(&mapped->frame);
    frame.height = GST_VIDEO_FRAME_HEIGHT(&mapped->frame);
    frame.timeMs = streamTimeMs(source);
    frame.owner = mapped.release();
    return true;
}

void releaseFrame(MediaPicture& frame) {
    const std::unique_ptr<MappedFrame> mapped(static_cast<MappedFrame*>(frame.owner));
    if (mapped) {
        gst_video_frame_unmap(&mapped->frame);
        frame = MediaPicture{};
    }
}

} // namespace media
