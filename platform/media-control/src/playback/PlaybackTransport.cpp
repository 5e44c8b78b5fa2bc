#include "playback/Playback.h"

#include "gst/ElementSearch.h"
#include "trace/MediaTrace.h"

#include <algorithm>

namespace media {
namespace {

constexpr int FASTEST = 16;

// Backwards, a decoder needs all pictures from one key frame to the next at once: beyond this it cannot keep up.
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

void Playback::resume() {
    if (!acceptsCommands()) {
        return;
    }
    m_paused = false;
    m_pausedBySpeed = false;
    update();
}

void Playback::pause() {
    if (!acceptsCommands()) {
        return;
    }
    m_paused = true;
    update();
}

void Playback::seek(int64_t ms) {
    if (!acceptsCommands()) {
        return;
    }
    if (m_told == Told::PLAYING) {
        m_told = Told::SEEKING; // the page waits for the next PLAYING
    }
    request(std::max<int64_t>(0, ms), comingRate(), true);
    update();
}

void Playback::setSpeed(int speed) {
    if (!acceptsCommands()) {
        return;
    }
    if (speed == 1 && m_told == Told::CONNECTING) {
        m_toldSpeed = 1; // the page starts at normal speed and knows it
    }
    m_askedSpeed = speed;
    m_pausedBySpeed = speed == 0;
    m_paused = speed == 0;
    const int rate = std::clamp(speed, -FASTEST, FASTEST);
    if (rate != 0 && rate != comingRate()) {
        request(std::nullopt, rate, true);
    }
    update();
}

void Playback::fitWindow() {
    if (!acceptsCommands()) {
        return;
    }
    m_videoSink.fitWindow();
    if (m_paused) {
        request(std::nullopt, comingRate(), false); // only new frames are scaled
        update();
    }
}

int Playback::comingRate() const {
    if (m_request) {
        return m_request->rate;
    }
    return m_seeking ? m_seeking->rate : m_rate;
}

/** Keeps the last place and the last rate that were asked for. */
void Playback::request(std::optional<int64_t> position, int rate, bool tellPosition) {
    if (!m_request) {
        m_request = Request{std::nullopt, rate, false};
    }
    m_request->rate = rate;
    m_request->tellPosition |= tellPosition;
    if (position) {
        m_request->position = position;
        m_context.status.holdPosition(m_settings.playback, *position);
    }
}

/** The pipeline has its first picture, or the one after a seek, or is held. */
void Playback::onSettled() {
    if (m_awaitsMark) {
        return;
    }
    *m_lastActivity = g_get_monotonic_time();
    m_settled = true;
    if (!m_prerolled) {
        m_prerolled = true;
        findOrigin();
        readMedia();
    }
    if (m_seeking) {
        m_rate = m_seeking->rate;
        m_tellPosition |= m_seeking->tellPosition;
        m_seeking.reset();
    }
    update();
}

/** Some media accept a seek to another speed and then deliver nothing. */
void Playback::returnToNormalSpeed() {
    *m_lastActivity = g_get_monotonic_time();
    request(std::nullopt, 1, true);
    m_seeking.reset();
    m_settled = true; // a flush seek is safe while another one hangs
    update();
}

/** Takes the next step towards what is wanted, as soon as the pipeline has done the last one. */
void Playback::update() {
    if (!acceptsCommands() || !m_settled) {
        return;
    }
    issueSelection();
    if (issueRequest()) {
        return;
    }
    m_context.status.followPipeline(m_settings.playback, m_pipeline.get());
    setTarget(!m_paused && m_bufferPercent >= 100 ? GST_STATE_PLAYING : GST_STATE_PAUSED);
    tellResults();
    tellState();
}

/** @return true when the pipeline is busy with it now */
bool Playback::issueRequest() {
    if (!m_request) {
        return false;
    }
    setTarget(GST_STATE_PAUSED);
    if (!m_settled) {
        // It may never get there without the seek. What it reports before this message is not the seek's doing.
        m_awaitsMark = true;
        gst_element_post_message(m_pipeline.get(), gst_message_new_application(GST_OBJECT(m_pipeline.get()),
                                                                               gst_structure_new_empty("mark")));
    }
    Request next = *m_request;
    m_request.reset();
    if (next.position && m_durationMs > 0 && *next.position > m_durationMs) {
        if (isTraced()) {
            traceNote(m_context.status.player(), "seek to " + std::to_string(*next.position) +
                                                     " ms dropped: the media ends at " + std::to_string(m_durationMs));
        }
        next.position.reset();
    }
    const int64_t position = next.position ? *next.position : m_context.status.position();
    if (next.rate < 0 && position == 0) {
        next.rate = 1; // there is nothing before the beginning
    }
    m_context.status.holdPosition(m_settings.playback, position);
    if (!sendSeek(m_pipeline.get(), next.rate, m_originMs + position)) {
        if (isTraced()) {
            traceNote(m_context.status.player(), "the media cannot go to " + std::to_string(position) +
                                                     " ms at speed " + std::to_string(next.rate));
        }
        m_awaitsMark = false;
        return !m_settled;
    }
    m_seeking = next;
    m_settled = false;
    m_hasPlayed = false;
    return true;
}

void Playback::tellResults() {
    m_context.status.setSpeed(m_settings.playback, m_paused ? 0 : m_rate);
    if (m_tellPosition) {
        m_tellPosition = false;
        report(eMEDIA_CALLBACK_POSITION_CHANGED);
    }
    tellSpeed();
}

void Playback::tellSpeed() {
    const int speed = m_pausedBySpeed ? 0 : m_rate;
    if (speed != m_toldSpeed || (m_askedSpeed && *m_askedSpeed != speed)) {
        m_toldSpeed = speed;
        report(eMEDIA_CALLBACK_SPEED_CHANGED);
    }
    m_askedSpeed.reset();
}

void Playback::setTarget(GstState target) {
    if (target == m_target) {
        return;
    }
    m_target = target;
    if (gst_element_set_state(m_pipeline.get(), target) == GST_STATE_CHANGE_ASYNC) {
        m_settled = false;
    }
    if (target == GST_STATE_PAUSED && !m_hasPlayed) {
        // Paused on its way from a seek to playing, the pipeline would go on with the time of before the seek.
        gst_element_set_start_time(m_pipeline.get(), 0);
    }
}

void Playback::tellState() {
    const auto tell = [this](Told state, eMEDIA_CALLBACK_EVENT event) {
        if (m_told != state) {
            m_told = state;
            report(event);
        }
    };
    if (m_paused) {
        tell(Told::PAUSED, eMEDIA_CALLBACK_PAUSED);
    } else if (m_finished || (m_isPlaying && m_target == GST_STATE_PLAYING)) {
        tell(Told::PLAYING, eMEDIA_CALLBACK_PLAYING);
    } else if (m_bufferPercent < 100 && m_told == Told::PLAYING) {
        tell(Told::BUFFERING, eMEDIA_CALLBACK_BUFFERING);
    }
}

} // namespace media
