#include "playback/Playback.h"

#include "gst/ElementSearch.h"
#include "gst/EventSource.h"
#include "gst/MissingPlugin.h"
#include "http/RequestTrace.h"
#include "playback/PipelineShutdown.h"
#include "sinks/AudioSink.h"
#include "sinks/TextSink.h"
#include "trace/MediaLog.h"
#include "trace/MediaTrace.h"

#include <algorithm>
#include <gst/pbutils/missing-plugins.h>
#include <limits>

namespace media {
namespace {

constexpr std::chrono::milliseconds WATCHDOG_PERIOD(500);
constexpr gint64 STALL_LIMIT_US = 10'000'000;
constexpr gint64 SPEED_LIMIT_US = 3'000'000; // for the first picture at another speed

// An end that comes earlier than this before the duration means that data is missing.
constexpr int64_t CUT_TOLERANCE_MS = 2000;

/** @return the time of what a sink got last, in milliseconds of the stream; -1 when it got nothing */
int64_t lastRendered(GstElement* sink) {
    GstSample* last = nullptr;
    if (g_object_class_find_property(G_OBJECT_GET_CLASS(sink), "last-sample")) {
        g_object_get(sink, "last-sample", &last, nullptr);
    }
    if (!last) {
        return -1;
    }
    const SamplePtr sample(last);
    const GstClockTime time = gst_segment_to_stream_time(gst_sample_get_segment(last), GST_FORMAT_TIME,
                                                         GST_BUFFER_PTS(gst_sample_get_buffer(last)));
    return GST_CLOCK_TIME_IS_VALID(time) ? static_cast<int64_t>(time / GST_MSECOND) : -1;
}

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
      m_videoSink(m_context.videoOutput, m_settings.playback),
      m_connections(m_context.thread, m_context.status.player(), m_settings.playback, m_settings.url),
      m_paused(m_settings.paused), m_toldSpeed(m_settings.paused ? 1 : m_settings.toldSpeed) {
    report(eMEDIA_CALLBACK_CONNECTING);
    if (!buildPipeline()) {
        fail(PlaybackErrorCode::INSUFFICIENT_RESOURCES, missingElementsAdvice());
        return;
    }
    m_busWatch = watchBus(m_context.thread, m_pipeline.get(), [this](GstMessage* message) { onMessage(message); });
    m_watchdog = callEvery(m_context.thread, WATCHDOG_PERIOD, [this] { onWatchdog(); });
    gst_element_set_state(m_pipeline.get(), m_target);
}

Playback::~Playback() {
    releasePipeline();
}

bool Playback::buildPipeline() {
    GstElement* playbin = gst_element_factory_make("playbin3", nullptr);
    if (!playbin) {
        return false;
    }
    gst_object_ref_sink(playbin);
    ElementPtr pipeline(playbin);
    GstElement* audioSink = makeAudioSink();
    GstElement* textSink = makeTextSink(m_context.subtitles, m_settings.playback);
    if (!audioSink || !textSink || !m_videoSink.element()) {
        return false;
    }
    gst_object_ref_sink(audioSink);
    m_audioSink.reset(audioSink);
    g_object_set(playbin, "uri", m_settings.url.c_str(), "video-sink", m_videoSink.element(), "audio-sink", audioSink,
                 "text-sink", textSink, nullptr);
    const auto marks = std::make_shared<TransportStreamInfo>();
    m_context.components.setMarks(m_settings.playback, marks);
    setUpStreams(playbin, {m_settings.url, m_settings.televisionUserAgent, m_lastActivity, marks});
    noteActivity(m_videoSink.element(), "sink", m_lastActivity);
    noteActivity(audioSink, "sink", m_lastActivity);
    m_pipeline = std::move(pipeline);
    return true;
}

/** GStreamer notices neither a server that falls silent nor streams that never start. */
void Playback::onWatchdog() {
    const bool waitsForData = !m_settled || !m_paused;
    const gint64 idle = g_get_monotonic_time() - *m_lastActivity;
    if (m_finished || !waitsForData) {
        *m_lastActivity = g_get_monotonic_time();
    } else if (idle > SPEED_LIMIT_US && (m_seeking ? m_seeking->rate : m_rate) != 1) {
        returnToNormalSpeed();
    } else if (idle > STALL_LIMIT_US) {
        fail(PlaybackErrorCode::BAD_CONNECTION,
             "no data came for " + std::to_string(STALL_LIMIT_US / G_USEC_PER_SEC) + " seconds");
    }
}

void Playback::onMessage(GstMessage* message) {
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ERROR: {
        m_errorSeen = true;
        const PlaybackError error = describeError(message, m_seeking.has_value());
        const std::string cause = error.isVague ? m_connections.failure() : std::string();
        fail(error.code, cause.empty() ? error.text : cause);
        break;
    }
    case GST_MESSAGE_EOS:
        onEndOfStream();
        break;
    case GST_MESSAGE_ASYNC_DONE:
        onSettled();
        break;
    case GST_MESSAGE_APPLICATION:
        m_awaitsMark = false;
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
        onStreamCollection(message);
        break;
    case GST_MESSAGE_STREAMS_SELECTED:
        onStreamsSelected(message);
        break;
    case GST_MESSAGE_LATENCY:
        gst_bin_recalculate_latency(GST_BIN(m_pipeline.get()));
        break;
    default:
        break;
    }
}

void Playback::onStateChanged(GstMessage* message) {
    if (GST_MESSAGE_SRC(message) == GST_OBJECT(m_pipeline.get())) {
        GstState now = GST_STATE_NULL;
        gst_message_parse_state_changed(message, nullptr, &now, nullptr);
        m_isPlaying = now == GST_STATE_PLAYING;
        m_hasPlayed |= m_isPlaying && !m_seeking && GST_STATE(m_pipeline.get()) == GST_STATE_PLAYING;
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
    if (!m_settled || m_request || m_finished) {
        return; // the end of what was played before the seek that is under way
    }
    if (m_rate < 0) {
        request(0, 1, true); // the beginning: go on forwards from there
        update();
        return;
    }
    if (isCut()) {
        fail(PlaybackErrorCode::CONTENT_CORRUPT, "the media breaks off before its end");
        return;
    }
    m_finished = true;
    tellState(); // what is left after a seek to the end may be over before the pipeline says that it plays
    m_context.status.finishPlayback(m_settings.playback);
    report(eMEDIA_CALLBACK_FINISHED);
}

/** A transport stream's time begins with its clock, some tenths of a second before its first picture. */
void Playback::findOrigin() {
    if (findElements(m_pipeline.get(), "tsdemux").empty() || !findAdaptiveDemuxers(m_pipeline.get()).empty()) {
        return; // the playlists of adaptive streams say where time begins
    }
    const int64_t video = lastRendered(m_videoSink.sink());
    const int64_t audio = lastRendered(m_audioSink.get());
    m_originMs = std::max<int64_t>(0, video < 0 || audio < 0 ? std::max(video, audio) : std::min(video, audio));
    m_context.status.setOrigin(m_settings.playback, m_originMs);
    m_context.videoOutput->setOrigin(m_settings.playback, m_originMs);
}

void Playback::readMedia() {
    if (!m_prerolled) {
        return;
    }
    gint64 duration = 0;
    if (!gst_element_query_duration(m_pipeline.get(), GST_FORMAT_TIME, &duration) || duration < 0) {
        duration = 0;
    }
    m_durationMs = static_cast<int>(std::min<int64_t>(duration / GST_MSECOND, std::numeric_limits<int>::max()));
    gboolean seekable = TRUE;
    GstQuery* query = gst_query_new_seeking(GST_FORMAT_TIME);
    if (gst_element_query(m_pipeline.get(), query)) {
        gst_query_parse_seeking(query, nullptr, &seekable, nullptr, nullptr);
    }
    gst_query_unref(query);
    m_context.status.setMedia(m_settings.playback, m_durationMs, seekable);
}

/** GStreamer takes a film whose data breaks off for one that has ended. */
bool Playback::isCut() const {
    const int64_t video = lastRendered(m_videoSink.sink());
    if (video < 0 || m_rate != 1) {
        return false;
    }
    return std::max(video, lastRendered(m_audioSink.get())) - m_originMs + CUT_TOLERANCE_MS < m_durationMs;
}

void Playback::fail(PlaybackErrorCode code, const std::string& cause) {
    PlayerStatus& status = m_context.status;
    status.position(); // the last one stays
    releasePipeline();
    if (!status.isCurrent(m_settings.playback)) {
        return;
    }
    const std::string text = "cannot play " + m_settings.url + ": " + cause;
    traceNote(status.player(), text);
    MEDIA_LOG_ERROR("player " + std::to_string(status.player()) + " " + text);
    status.failPlayback(m_settings.playback);
    report(eMEDIA_CALLBACK_ERROR, static_cast<int>(code), cause);
}

void Playback::releasePipeline() {
    m_busWatch.reset();
    m_watchdog.reset();
    m_refreshTimer.reset();
    if (m_pipeline) {
        endPipeline(m_context.thread, std::move(m_pipeline), m_prerolled || m_errorSeen);
    }
}

void Playback::report(eMEDIA_CALLBACK_EVENT event, int code, const std::string& detail) {
    m_context.status.report(m_settings.playback, event, code, detail);
}

} // namespace media
