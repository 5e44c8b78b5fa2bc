#include "tracks/Components.h"

#include "tracks/ComponentText.h"

#include <algorithm>
#include <cctype>
#include <gst/video/video.h>

namespace media {
namespace {

struct TagListUnref {
    void operator()(GstTagList* tags) const { gst_tag_list_unref(tags); }
};
using TagListPtr = std::unique_ptr<GstTagList, TagListUnref>;

/** Media type to the name that the A/V Control object's `encoding` has; others go by their media type. */
std::string encodingName(const GstStructure* format) {
    const std::string media = gst_structure_get_name(format);
    if (media == "audio/mpeg") {
        int version = 0;
        gst_structure_get_int(format, "mpegversion", &version);
        return version == 1 ? "MPEG1_L3" : "HEAAC";
    }
    if (media == "video/x-h265") {
        return "HEVC";
    }
    if (media == "application/x-subtitle-vtt") {
        return "WEBVTT";
    }
    if (media == "text/x-raw") {
        return {}; // parsed already: nothing says which format it had
    }
    std::string name = media.substr(media.find('/') + 1);
    if (name.rfind("x-", 0) == 0) {
        name.erase(0, 2);
    }
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::toupper(c); });
    return name;
}

std::string languageOf(const GstTagList* tags) {
    gchar* text = nullptr;
    if (!tags || !gst_tag_list_get_string(tags, GST_TAG_LANGUAGE_CODE, &text)) {
        return "und";
    }
    return languageCode(TextPtr(text).get());
}

double aspectRatioOf(const GstStructure* format) {
    int width = 0;
    int height = 0;
    if (!gst_structure_get_int(format, "width", &width) || !gst_structure_get_int(format, "height", &height) ||
        height == 0) {
        return 0;
    }
    int numerator = 1;
    int denominator = 1;
    gst_structure_get_fraction(format, "pixel-aspect-ratio", &numerator, &denominator);
    return static_cast<double>(width) * numerator / (static_cast<double>(height) * denominator);
}

Hbbtv_AL_ComponentInfo describe(GstStream* stream, AVComponentType type) {
    Hbbtv_AL_ComponentInfo info = {};
    info.type = type;
    const CapsPtr caps(gst_stream_get_caps(stream));
    if (caps && gst_caps_get_size(caps.get()) > 0) {
        const GstStructure* format = gst_caps_get_structure(caps.get(), 0);
        copyText(info.encoding, encodingName(format));
        if (type == AV_COMPONENT_TYPE_VIDEO) {
            info.aspectRatio = aspectRatioOf(format);
        } else if (type == AV_COMPONENT_TYPE_AUDIO) {
            gst_structure_get_int(format, "channels", &info.audioChannels);
        }
    }
    if (type != AV_COMPONENT_TYPE_VIDEO) {
        const TagListPtr tags(gst_stream_get_tags(stream));
        copyText(info.language, languageOf(tags.get()));
    }
    return info;
}

/** @return false for subtitles as bitmaps or teletext, which this player does not draw */
bool isText(GstStream* stream) {
    const CapsPtr caps(gst_stream_get_caps(stream));
    if (!caps || gst_caps_is_empty(caps.get()) || gst_caps_is_any(caps.get())) {
        return true;
    }
    const char* format = gst_structure_get_name(gst_caps_get_structure(caps.get(), 0));
    return !g_str_has_prefix(format, "subpicture/") && !g_str_equal(format, "application/x-teletext");
}

} // namespace

AVComponentType componentType(GstStream* stream) {
    const GstStreamType type = gst_stream_get_stream_type(stream);
    if (type & GST_STREAM_TYPE_VIDEO) {
        return AV_COMPONENT_TYPE_VIDEO;
    }
    if (type & GST_STREAM_TYPE_AUDIO) {
        return AV_COMPONENT_TYPE_AUDIO;
    }
    return type & GST_STREAM_TYPE_TEXT && isText(stream) ? AV_COMPONENT_TYPE_SUBTITLE : AV_COMPONENT_TYPE_INVALID;
}

void Components::open(PlaybackId playback, const std::string& url) {
    const support::Lock lock(m_mutex);
    forget(playback);
    if (url != m_url) {
        m_url = url;
        m_pids.clear();
    }
}

void Components::close() {
    const support::Lock lock(m_mutex);
    forget(PlaybackId::NONE);
}

void Components::forget(PlaybackId playback) {
    m_playback = playback;
    m_collection.reset();
    m_transportInfo.reset();
    m_active = {};
}

void Components::setCollection(PlaybackId playback, CollectionPtr collection) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_collection = std::move(collection);
        nameStreams();
    }
}

void Components::nameStreams() {
    const guint count = gst_stream_collection_get_size(m_collection.get());
    for (guint i = 0; i < count; ++i) {
        const char* stream = gst_stream_get_stream_id(gst_stream_collection_get_stream(m_collection.get(), i));
        if (m_pids.emplace(stream, m_lastPid + 1).second) {
            ++m_lastPid;
        }
    }
}

void Components::setTransportInfo(PlaybackId playback, std::shared_ptr<const TransportStreamInfo> info) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_transportInfo = std::move(info);
    }
}

void Components::setActive(PlaybackId playback, const StreamSelection& active) {
    const support::Lock lock(m_mutex);
    if (playback == m_playback) {
        m_active = active;
    }
}

StreamSelection Components::active() const {
    const support::Lock lock(m_mutex);
    return m_active;
}

std::vector<Components::Entry> Components::entries(AVComponentType type) const {
    const support::Lock lock(m_mutex);
    std::vector<Entry> found;
    const guint count = m_collection ? gst_stream_collection_get_size(m_collection.get()) : 0;
    for (guint i = 0; i < count; ++i) {
        GstStream* stream = gst_stream_collection_get_stream(m_collection.get(), i);
        if (componentType(stream) == type) {
            Entry entry = {gst_stream_get_stream_id(stream), describe(stream, type)};
            const StreamDescriptors descriptors =
                m_transportInfo ? m_transportInfo->of(entry.stream) : StreamDescriptors();
            entry.info.componentTag = descriptors.componentTag;
            entry.info.audioDescription = descriptors.audioDescription;
            entry.info.pid = m_pids.at(entry.stream);
            entry.info.active = entry.stream == m_active[static_cast<size_t>(type)];
            found.push_back(std::move(entry));
        }
    }
    return found;
}

std::vector<Hbbtv_AL_ComponentInfo> Components::list(AVComponentType type) const {
    std::vector<Hbbtv_AL_ComponentInfo> infos;
    for (const Entry& entry : entries(type)) {
        infos.push_back(entry.info);
    }
    return infos;
}

std::string Components::streamOf(AVComponentType type, int pid) const {
    for (const Entry& entry : entries(type)) {
        if (entry.info.pid == pid) {
            return entry.stream;
        }
    }
    return {};
}

std::string Components::defaultStream(AVComponentType type) const {
    const std::vector<Entry> found = entries(type);
    return found.empty() ? std::string() : found.front().stream;
}

} // namespace media
