#include "playback/SeekController.h"

#include "gst/ElementSearch.h"
#include "trace/MediaTrace.h"

#include <string>
#include <utility>

namespace media {
namespace {

// Backwards, a decoder needs all frames from one key frame to the next at once: beyond this it cannot keep up.
constexpr int FASTEST_BACKWARDS_IN_FULL = 2;

GstSeekFlags seekFlags(int rate, bool onlyKeyUnits) {
    int flags = GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE;
    if (rate != 1) {
        flags |= GST_SEEK_FLAG_TRICKMODE | GST_SEEK_FLAG_TRICKMODE_NO_AUDIO;
    }
    if (onlyKeyUnits) {
        flags |= GST_SEEK_FLAG_TRICKMODE_KEY_UNITS;
    }
    return static_cast<GstSeekFlags>(flags);
}

bool sendSeek(GstElement* pipeline, int rate, int64_t positionMs) {
    const gint64 position = positionMs * GST_MSECOND;
    // DASH goes backwards by key frames for one segment, and then stalls.
    const bool onlyKeyUnits = rate < -FASTEST_BACKWARDS_IN_FULL && findElements(pipeline, "dashdemux2").empty();
    const GstSeekFlags flags = seekFlags(rate, onlyKeyUnits);
    // The end is set each time: the one of an earlier backward seek would stand.
    return rate > 0 ? gst_element_seek(pipeline, rate, GST_FORMAT_TIME, flags, GST_SEEK_TYPE_SET, position,
                                       GST_SEEK_TYPE_SET, static_cast<gint64>(GST_CLOCK_TIME_NONE))
                    : gst_element_seek(pipeline, rate, GST_FORMAT_TIME, flags, GST_SEEK_TYPE_SET, 0, GST_SEEK_TYPE_SET,
                                       position);
}

} // namespace

SeekController::SeekController(PlayerStatus& status, PlaybackId playback, const MediaPipeline& pipeline)
    : m_status(status), m_playback(playback), m_pipeline(pipeline) {}

void SeekController::start() {
    gst_element_set_state(m_pipeline.element(), m_target);
}

void SeekController::requestSeek(std::optional<int64_t> position, int rate, bool isCommand) {
    if (!m_request) {
        m_request = Seek{std::nullopt, rate, false};
    }
    m_request->rate = rate;
    m_request->isCommand |= isCommand;
    if (position) {
        m_request->position = position;
        m_status.holdPosition(m_playback, *position);
    }
}

bool SeekController::onAsyncDone() {
    if (m_phase == Phase::SEEK_QUEUED) {
        return false;
    }
    if (m_phase == Phase::SEEKING) {
        m_rate = m_seek.rate;
        m_isCommandDone |= m_seek.isCommand;
    }
    if (m_phase != Phase::ENDED) {
        m_phase = Phase::SETTLED;
    }
    return true;
}

void SeekController::onMarker() {
    if (m_phase == Phase::SEEK_QUEUED) {
        m_phase = Phase::SEEKING;
    }
}

void SeekController::onStateChanged(GstState state) {
    m_isPlaying = state == GST_STATE_PLAYING;
    // The message may be older than a pause that has followed.
    m_playedSinceSeek |= m_isPlaying && !isSeeking() && GST_STATE(m_pipeline.element()) == GST_STATE_PLAYING;
}

bool SeekController::takeCommandDone() {
    return std::exchange(m_isCommandDone, false);
}

/** @return the requested seek, with what the media does not have taken out of it */
SeekController::Seek SeekController::takeRequest() {
    Seek seek = *m_request;
    m_request.reset();
    const int durationMs = m_pipeline.durationMs();
    if (seek.position && durationMs > 0 && *seek.position > durationMs) {
        if (isTraced()) {
            traceNote(m_status.player(), "seek to " + std::to_string(*seek.position) +
                                             " ms dropped: the media ends at " + std::to_string(durationMs));
        }
        seek.position.reset();
    }
    return seek;
}

bool SeekController::issueSeek() {
    if (!m_request) {
        return false;
    }
    setTarget(GST_STATE_PAUSED);
    const bool isPausing = m_phase == Phase::PREROLLING;
    if (isPausing) {
        postMarker(); // before the seek is sent, whose ASYNC_DONE must come after it
    }
    Seek seek = takeRequest();
    const int64_t position = seek.position ? *seek.position : m_status.position();
    if (seek.rate < 0 && position == 0) {
        seek.rate = 1; // there is nothing before the beginning
    }
    // Before the seek is sent: while it is under way, the pipeline has no position.
    m_status.holdPosition(m_playback, position);
    if (!sendSeek(m_pipeline.element(), seek.rate, m_pipeline.originMs() + position)) {
        if (isTraced()) {
            traceNote(m_status.player(), "the media cannot go to " + std::to_string(position) + " ms at speed " +
                                             std::to_string(seek.rate));
        }
        return isPausing;
    }
    m_seek = seek;
    m_phase = isPausing ? Phase::SEEK_QUEUED : Phase::SEEKING;
    m_playedSinceSeek = false;
    return true;
}

void SeekController::postMarker() {
    GstElement* pipeline = m_pipeline.element();
    gst_element_post_message(pipeline,
                             gst_message_new_application(GST_OBJECT(pipeline), gst_structure_new_empty("seek-marker")));
}

void SeekController::setTarget(GstState target) {
    if (target == m_target) {
        return;
    }
    m_target = target;
    if (gst_element_set_state(m_pipeline.element(), target) == GST_STATE_CHANGE_ASYNC) {
        m_phase = Phase::PREROLLING;
    }
    if (target == GST_STATE_PAUSED && !m_playedSinceSeek) {
        // Paused on its way from a seek to playing, the pipeline would go on with the time of before the seek.
        gst_element_set_start_time(m_pipeline.element(), 0);
    }
}

} // namespace media
