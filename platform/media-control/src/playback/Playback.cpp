#include "playback/Playback.h"

#include "gst/EventSource.h"
#include "gst/MissingPlugin.h"
#include "http/RequestTrace.h"
#include "trace/MediaLog.h"
#include "trace/MediaTrace.h"

#include <algorithm>
#include <gst/pbutils/missing-plugins.h>
#include <utility>

namespace media {
namespace {

constexpr int FASTEST = 16;

constexpr std::chrono::milliseconds WATCHDOG_PERIOD(500);
constexpr gint64 STALL_LIMIT_US = 10'000'000;
constexpr gint64 SPEED_LIMIT_US = 3'000'000; // for the first frame at another speed

/** @return how much of what the start needs is there, in percent; 100 when playing can go on */
int bufferLevel(GstMessage* message) {
    gint percent = 0;
    gst_message_parse_buffering(message, &percent);
    GstBufferingMode mode = GST_BUFFERING_STREAM;
    gst_message_parse_buffering_stats(message, &mode, nullptr, nullptr, nullptr);
    if (mode != GST_BUFFERING_DOWNLOAD) {
        return percent;
    }
    // Two threads of a download post its level, and the older message may come last: only the element itself knows.
    gboolean isBusy = percent < 100;
    GstQuery* query = gst_query_new_buffering(GST_FORMAT_PERCENT);
    if (gst_element_query(GST_ELEMENT(GST_MESSAGE_SRC(message)), query)) {
        gst_query_parse_buffering_percent(query, &isBusy, &percent);
    }
    gst_query_unref(query);
    return isBusy ? std::min(percent, 99) : 100;
}

} // namespace

Playback::Playback(const PlaybackContext& context, PlaybackSettings settings)
    : m_context(context), m_settings(std::move(settings)),
      m_lastActivity(std::make_shared<LastActivity>(g_get_monotonic_time())),
      m_reporter(m_context.status, m_settings.playback, m_settings.paused ? 1 : m_settings.reportedSpeed),
      m_httpObserver(m_context.thread, m_context.status.player(), m_settings.playback, m_settings.url),
      m_pipeline(m_context, m_settings, m_lastActivity), m_seeks(m_context.status, m_settings.playback, m_pipeline),
      m_tracks(m_context, m_settings.playback, m_pipeline, m_reporter, [this] { refresh(); }),
      m_wanted(m_settings.paused ? Wanted::PAUSED : Wanted::PLAYING) {
    if (!m_pipeline.element()) {
        fail(PlaybackErrorCode::INSUFFICIENT_RESOURCES, missingElementsAdvice());
        return;
    }
    m_busWatch = watchBus(m_context.thread, m_pipeline.element(), [this](GstMessage* message) { onMessage(message); });
    m_watchdog = callEvery(m_context.thread, WATCHDOG_PERIOD, [this] { onWatchdog(); });
    m_seeks.start();
}

Playback::~Playback() {
    release();
}

void Playback::resume() {
    m_wanted = Wanted::PLAYING;
    update();
}

void Playback::pause() {
    if (m_wanted == Wanted::PLAYING) { // else a speed of 0 stays the reason
        m_wanted = Wanted::PAUSED;
    }
    update();
}

void Playback::seek(int64_t ms) {
    if (m_seeks.hasEnded()) {
        return;
    }
    m_reporter.onSeekCommand();
    m_seeks.requestSeek(std::max<int64_t>(0, ms), m_seeks.finalRate(), true);
    update();
}

void Playback::setSpeed(int speed) {
    if (m_seeks.hasEnded()) {
        return;
    }
    m_reporter.onSpeedCommand(speed);
    m_wanted = speed == 0 ? Wanted::PAUSED_BY_SPEED : Wanted::PLAYING;
    const int rate = std::clamp(speed, -FASTEST, FASTEST);
    if (rate != 0 && rate != m_seeks.finalRate()) {
        m_seeks.requestSeek(std::nullopt, rate, true);
    }
    update();
}

void Playback::fitWindow() {
    if (m_seeks.hasEnded()) {
        return;
    }
    m_pipeline.fitWindow();
    if (isPaused()) {
        refresh(); // only new frames are scaled
    }
}

void Playback::select(AVComponentType type, const std::string& stream) {
    if (m_seeks.hasEnded()) {
        return;
    }
    m_tracks.select(type, stream);
    update();
}

/** Takes the next step towards what is wanted, as soon as the pipeline has done the last one. */
void Playback::update() {
    if (!m_seeks.isSettled()) {
        return;
    }
    m_tracks.issueSelection(isPaused());
    if (m_seeks.issueSeek()) {
        return; // its end comes here again
    }
    m_context.status.followPipeline(m_settings.playback, m_pipeline.element());
    m_seeks.setTarget(!isPaused() && m_bufferPercent >= 100 ? GST_STATE_PLAYING : GST_STATE_PAUSED);
    // Before the reports: a page that gets one reads the speed at once.
    m_context.status.setSpeed(m_settings.playback, isPaused() ? 0 : m_seeks.rate());
    if (m_seeks.takeCommandDone()) {
        m_reporter.report(eMEDIA_CALLBACK_POSITION_CHANGED);
    }
    m_reporter.reportSpeed(m_wanted == Wanted::PAUSED_BY_SPEED ? 0 : m_seeks.rate());
    reportState();
}

/** Seeks to where the media is: what was changed in the pipeline then shows in new frames. */
void Playback::refresh() {
    m_seeks.requestSeek(std::nullopt, m_seeks.finalRate(), false);
    update();
}

void Playback::reportState() {
    if (isPaused()) {
        m_reporter.reportState(PageReporter::State::PAUSED);
    } else if (m_seeks.hasEnded() || m_seeks.isPlaying()) {
        m_reporter.reportState(PageReporter::State::PLAYING);
    } else if (m_bufferPercent < 100) {
        m_reporter.reportState(PageReporter::State::BUFFERING);
    }
}

/** GStreamer notices neither a server that falls silent nor streams that never start. */
void Playback::onWatchdog() {
    const gint64 now = g_get_monotonic_time();
    const gint64 idle = now - *m_lastActivity;
    const bool waitsForData = !m_seeks.isSettled() || !isPaused();
    if (m_seeks.hasEnded() || !waitsForData) {
        *m_lastActivity = now;
    } else if (idle > SPEED_LIMIT_US && m_seeks.nextRate() != 1) {
        // Some media accept a seek to another speed and then deliver nothing: back to normal speed.
        *m_lastActivity = now;
        m_seeks.requestSeek(std::nullopt, 1, true);
        m_seeks.abandonSeek();
        update();
    } else if (idle > STALL_LIMIT_US) {
        fail(PlaybackErrorCode::BAD_CONNECTION,
             "no data came for " + std::to_string(STALL_LIMIT_US / G_USEC_PER_SEC) + " seconds");
    }
}

void Playback::onMessage(GstMessage* message) {
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ERROR:
        onError(message);
        break;
    case GST_MESSAGE_EOS:
        onEndOfStream();
        break;
    case GST_MESSAGE_ASYNC_DONE:
        onAsyncDone();
        break;
    case GST_MESSAGE_APPLICATION:
        m_seeks.onMarker();
        break;
    case GST_MESSAGE_STATE_CHANGED:
        onStateChanged(message);
        break;
    case GST_MESSAGE_BUFFERING:
        onBuffering(message);
        break;
    case GST_MESSAGE_DURATION_CHANGED:
        readMedia();
        break;
    case GST_MESSAGE_ELEMENT:
        onElementMessage(message);
        break;
    case GST_MESSAGE_STREAM_COLLECTION:
        m_tracks.onStreamCollection(message);
        break;
    case GST_MESSAGE_STREAMS_SELECTED:
        m_tracks.onStreamsSelected(message);
        break;
    case GST_MESSAGE_LATENCY:
        gst_bin_recalculate_latency(GST_BIN(m_pipeline.element()));
        break;
    default:
        break;
    }
}

void Playback::onError(GstMessage* message) {
    m_pipeline.setFailed();
    const PlaybackError error = describeError(message, m_seeks.isSeeking());
    const std::string cause = error.isVague ? m_httpObserver.failure() : std::string();
    fail(error.code, cause.empty() ? error.cause : cause);
}

/** The pipeline has its first frame, or the one after a seek, or is paused. */
void Playback::onAsyncDone() {
    if (!m_seeks.onAsyncDone()) {
        return;
    }
    *m_lastActivity = g_get_monotonic_time();
    if (!m_pipeline.hasPrerolled()) {
        m_pipeline.setPrerolled();
        m_context.status.setOrigin(m_settings.playback, m_pipeline.originMs());
        m_context.videoOutput->setOrigin(m_settings.playback, m_pipeline.originMs());
        readMedia();
    }
    update();
}

void Playback::onStateChanged(GstMessage* message) {
    if (GST_MESSAGE_SRC(message) == GST_OBJECT(m_pipeline.element())) {
        GstState state = GST_STATE_NULL;
        gst_message_parse_state_changed(message, nullptr, &state, nullptr);
        m_seeks.onStateChanged(state);
        update();
    }
}

void Playback::onBuffering(GstMessage* message) {
    const int percent = bufferLevel(message);
    if (percent != m_bufferPercent) {
        m_bufferPercent = percent;
        *m_lastActivity = g_get_monotonic_time();
        m_context.status.setBufferLevel(m_settings.playback, percent);
        traceBuffering(m_context.status.player(), percent);
        update();
    }
}

void Playback::onElementMessage(GstMessage* message) {
    if (!gst_is_missing_plugin_message(message)) {
        traceRequest(m_context.status.player(), message);
        return;
    }
    const MissingPlugin missing = describeMissingPlugin(message);
    if (missing.isNeeded) {
        fail(PlaybackErrorCode::FORMAT_NOT_SUPPORTED, missing.advice);
    } else {
        traceNote(m_context.status.player(), missing.advice);
    }
}

void Playback::onEndOfStream() {
    if (!m_seeks.isSettled() || m_seeks.hasRequest()) {
        return; // the end of what was played before the seek that is under way
    }
    if (m_seeks.rate() < 0) {
        m_seeks.requestSeek(0, 1, true); // the beginning: go on forwards from there
        update();
        return;
    }
    if (m_seeks.rate() == 1 && m_pipeline.breaksOffEarly()) {
        fail(PlaybackErrorCode::CONTENT_CORRUPT, "the media breaks off before its end");
        return;
    }
    m_seeks.end();
    reportState(); // what is left after a seek to the end may be over before the pipeline says that it plays
    m_context.status.finishPlayback(m_settings.playback); // before the report: a page that gets it may start again
    m_reporter.report(eMEDIA_CALLBACK_FINISHED);
}

void Playback::readMedia() {
    if (m_pipeline.hasPrerolled()) { // what it says earlier is wrong
        const int durationMs = m_pipeline.readDuration();
        m_context.status.setMedia(m_settings.playback, durationMs, m_pipeline.isSeekable());
    }
}

void Playback::fail(PlaybackErrorCode code, const std::string& cause) {
    PlayerStatus& status = m_context.status;
    status.position(); // while there is a pipeline to ask: the last one stays
    release();
    if (!status.isCurrent(m_settings.playback)) {
        return;
    }
    const std::string text = "cannot play " + m_settings.url + ": " + cause;
    traceNote(status.player(), text);
    MEDIA_LOG_ERROR("player " + std::to_string(status.player()) + " " + text);
    status.failPlayback(m_settings.playback); // before the report, as at the end
    m_reporter.report(eMEDIA_CALLBACK_ERROR, static_cast<int>(code), cause);
}

void Playback::release() {
    m_busWatch.reset(); // before the pipeline ends, which takes a watch of its own
    m_watchdog.reset();
    m_seeks.end();
    m_tracks.end();
    m_pipeline.end();
}

} // namespace media
