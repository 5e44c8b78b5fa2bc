#include "Playback.h"

namespace media {

void Playback::select(AVComponentType type, const std::string& stream) {
    if (!acceptsCommands()) {
        return;
    }
    if (!m_wantedStreams) {
        m_wantedStreams = m_context.components.active();
    }
    (*m_wantedStreams)[static_cast<size_t>(type)] = stream;
    m_selectionDue = true;
    update();
}

void Playback::onStreamCollection(GstMessage* message) {
    GstStreamCollection* collection = nullptr;
    gst_message_parse_stream_collection(message, &collection);
    m_context.components.setCollection(m_settings.run, CollectionPtr(collection));
}

void Playback::onStreamsSelected(GstMessage* message) {
    StreamSelection active;
    const guint count = gst_message_streams_selected_get_size(message);
    for (guint i = 0; i < count; ++i) {
        GstStream* stream = gst_message_streams_selected_get_stream(message, i);
        const AVComponentType type = componentType(stream);
        if (type != AV_COMPONENT_TYPE_INVALID) {
            active[static_cast<size_t>(type)] = gst_stream_get_stream_id(stream);
        }
        gst_object_unref(stream);
    }
    const StreamSelection before = m_context.components.active();
    m_context.components.setActive(m_settings.run, active);
    m_selecting = false;
    if (!m_selectionDue) {
        m_wantedStreams.reset();
    }
    if (!m_prerolled || active == before) {
        return; // the media's own choice
    }
    for (size_t type = 0; type < COMPONENT_TYPES; ++type) {
        if (active[type] != before[type]) {
            report(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, static_cast<int>(type));
        }
    }
    request(std::nullopt, comingRate(), false); // else the change is heard only when the queues have run empty
    update();
}

void Playback::issueSelection() {
    if (!m_selectionDue || m_selecting) {
        return;
    }
    m_selectionDue = false;
    GList* streams = nullptr;
    for (const std::string& stream : *m_wantedStreams) {
        if (!stream.empty()) {
            streams = g_list_append(streams, const_cast<char*>(stream.c_str()));
        }
    }
    if (!streams || *m_wantedStreams == m_context.components.active()) {
        m_wantedStreams.reset(); // GStreamer does not survive an empty list
        g_list_free(streams);
        return;
    }
    m_selecting = true;
    gst_element_send_event(m_pipeline.get(), gst_event_new_select_streams(streams));
    g_list_free(streams);
    if (m_paused) {
        request(std::nullopt, comingRate(), false); // the switch happens as data flows
    }
}

} // namespace media
