#include "playback/TrackSwitcher.h"

#include "gst/ElementSearch.h"
#include "gst/EventSource.h"

#include <utility>

namespace media {
namespace {

using std::chrono::milliseconds;

// Enough to begin loading, and little enough for a change to be heard within half a second.
constexpr milliseconds SELECTED_STREAM_STARTS(200);

StreamSelection selectedStreams(GstMessage* message) {
    StreamSelection streams;
    const guint count = gst_message_streams_selected_get_size(message);
    for (guint i = 0; i < count; ++i) {
        GstStream* stream = gst_message_streams_selected_get_stream(message, i);
        const AVComponentType type = componentType(stream);
        if (type != AV_COMPONENT_TYPE_INVALID) {
            streams[static_cast<size_t>(type)] = gst_stream_get_stream_id(stream);
        }
        gst_object_unref(stream);
    }
    return streams;
}

void sendSelection(GstElement* pipeline, const StreamSelection& selection) {
    GList* streams = nullptr;
    for (const std::string& stream : selection) {
        if (!stream.empty()) {
            streams = g_list_append(streams, const_cast<char*>(stream.c_str()));
        }
    }
    gst_element_send_event(pipeline, gst_event_new_select_streams(streams));
    g_list_free(streams);
}

} // namespace

TrackSwitcher::TrackSwitcher(const PlaybackContext& context, PlaybackId playback, const MediaPipeline& pipeline,
                             PageReporter& reporter, std::function<void()> refresh)
    : m_context(context), m_playback(playback), m_pipeline(pipeline), m_reporter(reporter),
      m_refresh(std::move(refresh)) {}

void TrackSwitcher::select(AVComponentType type, const std::string& stream) {
    const auto index = static_cast<size_t>(type);
    m_hidden[index] = stream.empty();
    if (!stream.empty()) {
        if (!m_wantedStreams) {
            m_wantedStreams = m_streams;
        }
        (*m_wantedStreams)[index] = stream;
    }
    const bool isSelecting = m_phase == Phase::SELECTING || m_phase == Phase::SELECTING_THEN_DUE;
    m_phase = isSelecting ? Phase::SELECTING_THEN_DUE : Phase::DUE;
}

void TrackSwitcher::issueSelection(bool isPaused) {
    if (m_phase != Phase::DUE) {
        return;
    }
    if (!m_wantedStreams || *m_wantedStreams == m_streams) {
        m_phase = Phase::SETTLED;
        m_wantedStreams.reset();
        showSelection();
        return;
    }
    m_phase = Phase::SELECTING;
    sendSelection(m_pipeline.element(), *m_wantedStreams);
    if (isPaused) {
        refreshSoon(); // the switch happens as data flows
    }
}

void TrackSwitcher::onStreamCollection(GstMessage* message) {
    GstStreamCollection* collection = nullptr;
    gst_message_parse_stream_collection(message, &collection);
    m_context.components.setCollection(m_playback, CollectionPtr(collection));
}

void TrackSwitcher::onStreamsSelected(GstMessage* message) {
    const StreamSelection before = std::exchange(m_streams, selectedStreams(message));
    if (m_phase == Phase::SELECTING) {
        m_phase = Phase::SETTLED;
    } else if (m_phase == Phase::SELECTING_THEN_DUE) {
        m_phase = Phase::DUE;
    }
    if (m_phase == Phase::SETTLED) {
        m_wantedStreams.reset();
    }
    showSelection();
    if (m_pipeline.hasPrerolled() && m_streams != before) {
        refreshSoon(); // else the change is heard only when the queues have run empty
    }
}

/** Adaptive streams that have just been selected do not survive a seek at once. */
void TrackSwitcher::refreshSoon() {
    const bool isAdaptive = !findAdaptiveDemuxers(m_pipeline.element()).empty();
    const milliseconds delay = isAdaptive ? SELECTED_STREAM_STARTS : milliseconds(0);
    m_refreshTimer = callAfter(m_context.thread, delay, m_refresh);
}

void TrackSwitcher::showSelection() {
    StreamSelection active = m_streams;
    for (size_t type = 0; type < COMPONENT_TYPES; ++type) {
        if (m_hidden[type]) {
            active[type].clear();
        }
    }
    m_context.videoOutput->setHidden(m_playback, m_hidden[AV_COMPONENT_TYPE_VIDEO]);
    g_object_set(m_pipeline.element(), "mute", m_hidden[AV_COMPONENT_TYPE_AUDIO] ? TRUE : FALSE, nullptr);
    const StreamSelection before = m_context.components.active();
    // Before the reports: a page that gets one may read the active components at once.
    m_context.components.setActive(m_playback, active);
    if (!m_pipeline.hasPrerolled()) {
        return; // the media's own choice
    }
    for (size_t type = 0; type < COMPONENT_TYPES; ++type) {
        // The player reports subtitles: it hides and shows them, whatever flows.
        if (type != AV_COMPONENT_TYPE_SUBTITLE && active[type] != before[type]) {
            m_reporter.report(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, static_cast<int>(type));
        }
    }
}

} // namespace media
