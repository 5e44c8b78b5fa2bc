#include "playback/MediaPipeline.h"

#include "gst/ElementSearch.h"
#include "playback/PipelineShutdown.h"
#include "sinks/AudioSink.h"
#include "sinks/TextSink.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace media {
namespace {

// An end that comes earlier than this before the duration means that data is missing.
constexpr int64_t CUT_TOLERANCE_MS = 2000;

/** @return the stream time of what a sink got last; -1 when it got nothing */
int64_t lastRenderedMs(GstElement* sink) {
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

/** @return true for a transport stream, whose time begins some tenths of a second before its first frame */
bool beginsLate(GstElement* playbin) {
    // The playlists of adaptive streams say where time begins.
    return !findElements(playbin, "tsdemux").empty() && findAdaptiveDemuxers(playbin).empty();
}

} // namespace

MediaPipeline::MediaPipeline(const PlaybackContext& context, const PlaybackSettings& settings,
                             const std::shared_ptr<LastActivity>& lastActivity)
    : m_thread(context.thread), m_videoSink(context.videoOutput, settings.playback) {
    if (!build(context, settings, lastActivity)) {
        m_playbin.reset();
    }
}

MediaPipeline::~MediaPipeline() {
    end();
}

bool MediaPipeline::build(const PlaybackContext& context, const PlaybackSettings& settings,
                          const std::shared_ptr<LastActivity>& lastActivity) {
    GstElement* playbin = gst_element_factory_make("playbin3", nullptr);
    if (!playbin) {
        return false;
    }
    m_playbin.reset(GST_ELEMENT(gst_object_ref_sink(playbin)));
    GstElement* audioSink = makeAudioSink();
    GstElement* textSink = makeTextSink(context.subtitles, settings.playback);
    if (!audioSink || !textSink || !m_videoSink.element()) {
        return false;
    }
    m_audioSink.reset(GST_ELEMENT(gst_object_ref_sink(audioSink)));
    g_object_set(playbin, "uri", settings.url.c_str(), "video-sink", m_videoSink.element(), "audio-sink", audioSink,
                 "text-sink", textSink, nullptr);
    const auto transportInfo = std::make_shared<TransportStreamInfo>();
    context.components.setTransportInfo(settings.playback, transportInfo);
    setUpStreams(playbin, {settings.url, settings.televisionUserAgent, lastActivity, transportInfo});
    noteActivity(m_videoSink.element(), "sink", lastActivity);
    noteActivity(audioSink, "sink", lastActivity);
    return true;
}

void MediaPipeline::setPrerolled() {
    m_preroll = Preroll::DONE;
    if (beginsLate(m_playbin.get())) {
        const int64_t video = lastRenderedMs(m_videoSink.sink());
        const int64_t audio = lastRenderedMs(m_audioSink.get());
        m_originMs = std::max<int64_t>(0, video < 0 || audio < 0 ? std::max(video, audio) : std::min(video, audio));
    }
}

int MediaPipeline::readDuration() {
    gint64 duration = 0;
    if (!gst_element_query_duration(m_playbin.get(), GST_FORMAT_TIME, &duration) || duration < 0) {
        duration = 0;
    }
    m_durationMs = static_cast<int>(std::min<int64_t>(duration / GST_MSECOND, std::numeric_limits<int>::max()));
    return m_durationMs;
}

bool MediaPipeline::isSeekable() const {
    gboolean seekable = TRUE;
    GstQuery* query = gst_query_new_seeking(GST_FORMAT_TIME);
    if (gst_element_query(m_playbin.get(), query)) {
        gst_query_parse_seeking(query, nullptr, &seekable, nullptr, nullptr);
    }
    gst_query_unref(query);
    return seekable;
}

/** GStreamer takes media whose data breaks off for media that has ended. */
bool MediaPipeline::breaksOffEarly() const {
    const int64_t video = lastRenderedMs(m_videoSink.sink());
    if (video < 0) {
        return false;
    }
    return std::max(video, lastRenderedMs(m_audioSink.get())) - m_originMs + CUT_TOLERANCE_MS < m_durationMs;
}

void MediaPipeline::end() {
    if (m_playbin) {
        endPipeline(m_thread, std::move(m_playbin), m_preroll != Preroll::UNDER_WAY);
    }
}

} // namespace media
