#include "playback/Playback.h"

#include "gst/ElementSearch.h"
#include "gst/EventSource.h"

#include <utility>

namespace media {
namespace {

// Enough to begin loading, and little enough for a change to be heard within half a second.
constexpr std::chrono::milliseconds SELECTED_STREAM_STARTS(200);

} // namespace

void Playback::select(AVComponentType type, const std::string& stream) {
    if (!acceptsCommands()) {
        return;
    }
    const auto index = static_cast<size_t>(type);
    m_hidden[index] = stream.empty();
    if (!stream.empty()) {
        if (!m_wantedStreams) {
            m_wantedStreams = m_streams;
        }
        (*m_wantedStreams)[index] = stream;
    }
    m_selectionDue = true;
    update();
}

void Playback::onStreamCollection(GstMessage* message) {
    GstStreamCollection* collection = nullptr;
    gst_message_parse_stream_collection(message, &collection);
    m_context.components.setCollection(m_settings.playback, CollectionPtr(collection));
}

void Playback::onStreamsSelected(GstMessage* message) {
    const StreamSelection before = std::exchange(m_streams, {});
    const guint count = gst_message_streams_selected_get_size(message);
    for (guint i = 0; i < count; ++i) {
        GstStream* stream = gst_message_streams_selected_get_stream(message, i);
        const AVComponentType type = componentType(stream);
        if (type != AV_COMPONENT_TYPE_INVALID) {
            m_streams[static_cast<size_t>(type)] = gst_stream_get_stream_id(stream);
        }
        gst_object_unref(stream);
    }
    m_selecting = false;
    if (!m_selectionDue) {
        m_wantedStreams.reset();
    }
    showSelection();
    if (m_prerolled && m_streams != before) {
        refreshSoon(); // else the change is heard only when the queues have run empty
    }
}

/** Seeks to where the media is. Adaptive streams that have just been selected do not survive that at once. */
void Playback::refreshSoon() {
    const bool isAdaptive = !findAdaptiveDemuxers(m_pipeline.get()).empty();
    m_refreshTimer =
        callAfter(m_context.thread, isAdaptive ? SELECTED_STREAM_STARTS : std::chrono::milliseconds(0), [this] {
            request(std::nullopt, comingRate(), false);
            update();
        });
}

void Playback::issueSelection() {
    if (!m_selectionDue || m_selecting) {
        return;
    }
    m_selectionDue = false;
    if (!m_wantedStreams || *m_wantedStreams == m_streams) {
        m_wantedStreams.reset();
        showSelection();
        return;
    }
    GList* streams = nullptr;
    for (const std::string& stream : *m_wantedStreams) {
        if (!stream.empty()) {
            streams = g_list_append(streams, const_cast<char*>(stream.c_str()));
        }
    }
    m_selecting = true;
    gst_element_send_event(m_pipeline.get(), gst_event_new_select_streams(streams));
    g_list_free(streams);
    if (m_paused) {
        refreshSoon(); // the switch happens as data flows
    }
}

/** What is unselected runs on unseen or unheard: GStreamer stalls when one of several streams goes and comes back. */
void Playback::showSelection() {
    StreamSelection active = m_streams;
    for (size_t type = 0; type < COMPONENT_TYPES; ++type) {
        if (m_hidden[type]) {
            active[type].clear();
        }
    }
    m_context.videoOutput->setHidden(m_settings.playback, m_hidden[AV_COMPONENT_TYPE_VIDEO]);
    g_object_set(m_pipeline.get(), "mute", m_hidden[AV_COMPONENT_TYPE_AUDIO] ? TRUE : FALSE, nullptr);
    const StreamSelection before = m_context.components.active();
    m_context.components.setActive(m_settings.playback, active);
    if (!m_prerolled) {
        return; // the media's own choice
    }
    for (size_t type = 0; type < COMPONENT_TYPES; ++type) {
        // Subtitles are the player's to tell of: it hides and shows them, whatever flows.
        if (type != AV_COMPONENT_TYPE_SUBTITLE && active[type] != before[type]) {
            report(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, static_cast<int>(type));
        }
    }
}

} // namespace media
