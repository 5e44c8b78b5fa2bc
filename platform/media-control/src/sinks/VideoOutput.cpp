#include "sinks/VideoOutput.h"

#include "sinks/VideoFrame.h"

#include <utility>

namespace media {
namespace {

support::Mutex observerMutex; // held during the call, so that setVideoObserver waits for its end
MediaPictureCallback observer GUARDED_BY(observerMutex) = nullptr;
void* observerData GUARDED_BY(observerMutex) = nullptr;

/** Not under VideoOutput's mutex: the observer may request the window or the frame at once. */
void notify(int player) {
    const support::Lock lock(observerMutex);
    if (observer) {
        observer(player, observerData);
    }
}

} // namespace

void setVideoObserver(MediaPictureCallback callback, void* userData) {
    const support::Lock lock(observerMutex);
    observer = callback;
    observerData = userData;
}

VideoOutput::VideoOutput(int player) : m_player(player), m_window{player, 0, 0, 0, 0} {}

void VideoOutput::open(PlaybackId playback) {
    const support::Lock lock(m_mutex);
    m_playback = playback;
    m_origin = 0;
    m_hidden = false;
}

void VideoOutput::setOrigin(PlaybackId playback, int64_t ms) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_origin = ms;
    }
}

void VideoOutput::setHidden(PlaybackId playback, bool hidden) {
    {
        const support::Lock lock(m_mutex);
        if (playback != m_playback || hidden == m_hidden) {
            return;
        }
        m_hidden = hidden;
    }
    notify(m_player);
}

void VideoOutput::clear() {
    SamplePtr former; // freed after the mutex is
    {
        const support::Lock lock(m_mutex);
        m_playback = PlaybackId::NONE;
        former = std::move(m_frame);
    }
    if (former) {
        notify(m_player);
    }
}

void VideoOutput::freeze() {
    const support::Lock lock(m_mutex);
    m_playback = PlaybackId::NONE;
}

void VideoOutput::present(PlaybackId playback, SamplePtr frame) {
    {
        const support::Lock lock(m_mutex);
        if (playback != m_playback) {
            return;
        }
        m_frame.swap(frame); // the former frame is freed after the mutex is
        ++m_serial;
    }
    notify(m_player);
}

void VideoOutput::setWindow(int x, int y, int width, int height) {
    {
        const support::Lock lock(m_mutex);
        if (m_window.x == x && m_window.y == y && m_window.width == width && m_window.height == height) {
            return;
        }
        m_window = {m_player, x, y, width, height};
    }
    notify(m_player);
}

MediaPictureWindow VideoOutput::window() const {
    const support::Lock lock(m_mutex);
    return m_window;
}

bool VideoOutput::isVisible() const {
    const support::Lock lock(m_mutex);
    return m_frame && !m_hidden && m_window.width > 0 && m_window.height > 0;
}

void VideoOutput::notifyOverlayChange() const {
    notify(m_player);
}

bool VideoOutput::acquire(MediaPicture& frame) const {
    SamplePtr sample;
    uint64_t serial = 0;
    int64_t origin = 0;
    {
        const support::Lock lock(m_mutex);
        if (!m_frame || m_hidden) {
            return false;
        }
        sample.reset(gst_sample_ref(m_frame.get()));
        serial = m_serial;
        origin = m_origin;
    }
    if (!mapFrame(std::move(sample), frame)) {
        return false;
    }
    frame.timeMs -= origin;
    frame.serial = serial;
    return true;
}

} // namespace media
