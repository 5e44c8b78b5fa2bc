#include "sinks/Picture.h"

#include "MediaControlExport.h"

#include <gst/video/video.h>

namespace media {
namespace {

std::mutex observerMutex;
MediaPictureCallback observer = nullptr;
void* observerData = nullptr;

void notify(int player) {
    const std::lock_guard<std::mutex> lock(observerMutex);
    if (observer) {
        observer(player, observerData);
    }
}

/** What a MediaPicture holds on to. */
struct HeldFrame {
    SamplePtr sample;
    GstVideoFrame frame;
};

int64_t streamTimeMs(GstSample* sample) {
    const GstClockTime time = gst_segment_to_stream_time(gst_sample_get_segment(sample), GST_FORMAT_TIME,
                                                         GST_BUFFER_PTS(gst_sample_get_buffer(sample)));
    return GST_CLOCK_TIME_IS_VALID(time) ? static_cast<int64_t>(time / GST_MSECOND) : 0;
}

} // namespace

Picture::Picture(int player) : m_player(player), m_window{player, 0, 0, 0, 0} {}

void Picture::open(PlaybackId playback) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_playback = playback;
    m_origin = 0;
    m_hidden = false;
}

void Picture::setOrigin(PlaybackId playback, int64_t ms) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (playback == m_playback) {
        m_origin = ms;
    }
}

void Picture::setHidden(PlaybackId playback, bool hidden) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (playback != m_playback || hidden == m_hidden) {
            return;
        }
        m_hidden = hidden;
    }
    notify(m_player);
}

void Picture::hold() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_playback = PlaybackId::NONE;
}

void Picture::close() {
    SamplePtr old;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_playback = PlaybackId::NONE;
        old = std::move(m_sample);
    }
    if (old) {
        notify(m_player);
    }
}

void Picture::show(PlaybackId playback, SamplePtr sample) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (playback != m_playback) {
            return;
        }
        m_sample.swap(sample);
        ++m_serial;
    }
    notify(m_player);
}

bool Picture::setWindow(int x, int y, int width, int height) {
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_window.x == x && m_window.y == y && m_window.width == width && m_window.height == height) {
            return false;
        }
        m_window = {m_player, x, y, width, height};
    }
    notify(m_player);
    return true;
}

MediaPictureWindow Picture::window() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_window;
}

bool Picture::isVisible() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_sample && !m_hidden && m_window.width > 0 && m_window.height > 0;
}

void Picture::tellChange() const {
    notify(m_player);
}

bool Picture::acquire(MediaPicture& picture) const {
    auto held = std::make_unique<HeldFrame>();
    uint64_t serial = 0;
    int64_t origin = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_sample || m_hidden) {
            return false;
        }
        held->sample.reset(gst_sample_ref(m_sample.get()));
        serial = m_serial;
        origin = m_origin;
    }
    GstVideoInfo info;
    if (!gst_video_info_from_caps(&info, gst_sample_get_caps(held->sample.get())) ||
        !gst_video_frame_map(&held->frame, &info, gst_sample_get_buffer(held->sample.get()), GST_MAP_READ)) {
        return false;
    }
    picture.pixels = static_cast<const unsigned char*>(GST_VIDEO_FRAME_PLANE_DATA(&held->frame, 0));
    picture.stride = GST_VIDEO_FRAME_PLANE_STRIDE(&held->frame, 0);
    picture.width = GST_VIDEO_FRAME_WIDTH(&held->frame);
    picture.height = GST_VIDEO_FRAME_HEIGHT(&held->frame);
    picture.timeMs = streamTimeMs(held->sample.get()) - origin;
    picture.serial = serial;
    picture.owner = held.release();
    return true;
}

} // namespace media

MEDIA_EXPORT void mediaPictureSetCallback(MediaPictureCallback callback, void* userData) {
    const std::lock_guard<std::mutex> lock(media::observerMutex);
    media::observer = callback;
    media::observerData = userData;
}

MEDIA_EXPORT void mediaPictureRelease(MediaPicture* picture) {
    const std::unique_ptr<media::HeldFrame> held(static_cast<media::HeldFrame*>(picture->owner));
    if (held) {
        gst_video_frame_unmap(&held->frame);
        *picture = MediaPicture{};
    }
}
