#include "playback/PlayerStatus.h"

#include "trace/MediaTrace.h"

#include <algorithm>

namespace media {
namespace {

/** A live stream offers only what its server still keeps and already has. */
bool isAvailable(GstElement* pipeline, int64_t ms) {
    gint64 start = -1;
    gint64 end = -1;
    GstQuery* query = gst_query_new_seeking(GST_FORMAT_TIME);
    if (gst_element_query(pipeline, query)) {
        gst_query_parse_seeking(query, nullptr, nullptr, &start, &end);
    }
    gst_query_unref(query);
    const int64_t position = ms * static_cast<int64_t>(GST_MSECOND);
    return position >= start && (end < 0 || position <= end);
}

} // namespace

void PlayerStatus::setCallback(Hbbtv_AL_MediaPlayerCallback callback, void* userData) {
    const support::Lock lock(m_mutex);
    m_callback = callback;
    m_userData = userData;
}

void PlayerStatus::forgetMedia() {
    const support::Lock lock(m_mutex);
    m_position = -1;
    m_duration = -1;
}

PlaybackId PlayerStatus::startPlayback() {
    const support::Lock lock(m_mutex);
    m_phase = MEDIA_STATE_STARTED;
    m_pipeline.reset();
    m_position = 0;
    m_origin = 0;
    m_duration = 0;
    m_seekable = true;
    m_speed = 0;
    m_bufferPercent = 100;
    return m_playback = nextPlaybackId();
}

PlaybackId PlayerStatus::stopPlayback() {
    position(); // the last one stays
    const support::Lock lock(m_mutex);
    if (m_phase == MEDIA_STATE_STOPPED) {
        return PlaybackId::NONE;
    }
    m_phase = MEDIA_STATE_STOPPED;
    m_pipeline.reset();
    m_speed = 0;
    m_bufferPercent = 100;
    return m_playback = nextPlaybackId();
}

bool PlayerStatus::isStopped() const {
    const support::Lock lock(m_mutex);
    return m_phase == MEDIA_STATE_STOPPED;
}

bool PlayerStatus::isRunning() const {
    const support::Lock lock(m_mutex);
    return m_phase == MEDIA_STATE_STARTED;
}

bool PlayerStatus::hasFinished() const {
    const support::Lock lock(m_mutex);
    return m_phase == MEDIA_STATE_FINISHED;
}

bool PlayerStatus::canSeekTo(int ms) const {
    ElementPtr live;
    int64_t position = ms;
    {
        const support::Lock lock(m_mutex);
        if (m_phase != MEDIA_STATE_STARTED || !m_seekable) {
            return false;
        }
        if (m_duration > 0 || !m_pipeline) {
            return m_duration == 0 || ms <= m_duration;
        }
        live = shareElement(m_pipeline.get());
        position += m_origin;
    }
    return isAvailable(live.get(), position);
}

int64_t PlayerStatus::position() {
    ElementPtr pipeline;
    PlaybackId playback = PlaybackId::NONE;
    {
        const support::Lock lock(m_mutex);
        if (!m_pipeline) {
            return m_position;
        }
        pipeline = shareElement(m_pipeline.get());
        playback = m_playback;
    }
    gint64 time = 0;
    const bool known = gst_element_query_position(pipeline.get(), GST_FORMAT_TIME, &time);
    const support::Lock lock(m_mutex);
    if (known && playback == m_playback && m_pipeline) {
        m_position = clamped(time / static_cast<gint64>(GST_MSECOND) - m_origin);
    }
    return m_position;
}

int PlayerStatus::duration() const {
    const support::Lock lock(m_mutex);
    return m_duration;
}

int PlayerStatus::speed() const {
    const support::Lock lock(m_mutex);
    return m_speed;
}

MediaState PlayerStatus::read() {
    position(); // brings m_position up to date
    const support::Lock lock(m_mutex);
    return {m_phase, m_speed, m_position, m_duration, m_bufferPercent};
}

PlaybackId PlayerStatus::playback() const {
    const support::Lock lock(m_mutex);
    return m_playback;
}

bool PlayerStatus::isCurrent(PlaybackId playback) const {
    const support::Lock lock(m_mutex);
    return playback == m_playback;
}

void PlayerStatus::holdPosition(PlaybackId playback, int64_t ms) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_pipeline.reset();
        m_position = clamped(ms);
    }
}

void PlayerStatus::followPipeline(PlaybackId playback, GstElement* pipeline) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_pipeline = shareElement(pipeline);
    }
}

void PlayerStatus::setOrigin(PlaybackId playback, int64_t ms) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_origin = ms;
    }
}

void PlayerStatus::setMedia(PlaybackId playback, int durationMs, bool seekable) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_duration = durationMs;
        m_seekable = seekable;
    }
}

void PlayerStatus::setSpeed(PlaybackId playback, int speed) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_speed = speed;
    }
}

void PlayerStatus::setBufferLevel(PlaybackId playback, int percent) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_bufferPercent = percent;
    }
}

void PlayerStatus::failPlayback(PlaybackId playback) {
    const support::Lock lock(m_mutex);
    leave(playback, MEDIA_STATE_FAILED);
}

void PlayerStatus::finishPlayback(PlaybackId playback) {
    const support::Lock lock(m_mutex);
    leave(playback, MEDIA_STATE_FINISHED);
    if (playback == m_playback && m_duration > 0) {
        m_position = m_duration;
    }
}

void PlayerStatus::leave(PlaybackId playback, MediaStatePhase phase) {
    if (playback == m_playback) {
        m_phase = phase;
        m_pipeline.reset();
        m_speed = 0;
        m_bufferPercent = 100;
    }
}

void PlayerStatus::report(PlaybackId playback, eMEDIA_CALLBACK_EVENT event, int code, const std::string& cause) {
    Hbbtv_AL_MediaPlayerCallback callback = nullptr;
    void* userData = nullptr;
    {
        const support::Lock lock(m_mutex);
        if (playback != m_playback) {
            return;
        }
        callback = m_callback;
        userData = m_userData;
    }
    traceReport(m_player, {event, code, cause.c_str()});
    if (callback) {
        callback(static_cast<unsigned int>(m_player), event, code, nullptr, userData);
    }
}

int64_t PlayerStatus::clamped(int64_t ms) const {
    return std::max<int64_t>(0, m_duration > 0 ? std::min<int64_t>(ms, m_duration) : ms);
}

} // namespace media
