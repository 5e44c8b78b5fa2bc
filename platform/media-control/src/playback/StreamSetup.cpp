#include "playback/StreamSetup.h"

#include "gst/GstPointer.h"
#include "http/MediaRequests.h"
#include "tracks/ProgramMapReader.h"

#include <cstdio>
#include <unistd.h>

namespace media {
namespace {

// From GStreamer's GstPlayFlags, which no header offers: video, audio, text, software volume.
constexpr guint PLAY_FLAGS = 0x01 | 0x02 | 0x04 | 0x10;
constexpr guint PLAY_FLAG_DOWNLOAD = 0x80;
constexpr guint PLAY_FLAG_BUFFERING = 0x100;

// Playing starts when that much is there; the default waits for most of a short file.
constexpr guint START_BYTES = 200'000;

GstPadProbeReturn onData(GstPad* /*pad*/, GstPadProbeInfo* /*info*/, gpointer data) {
    **static_cast<std::shared_ptr<LastActivity>*>(data) = g_get_monotonic_time();
    return GST_PAD_PROBE_OK;
}

void onSourceSetup(GstElement* /*playbin*/, GstElement* source, gpointer data) {
    const auto* setup = static_cast<const StreamSettings*>(data);
    prepareRequests(source, setup->url, setup->televisionUserAgent);
    noteActivity(source, "src", setup->lastActivity);
}

/** Only a file that is downloaded while it plays can be played backwards; GStreamer puts it into the user's cache. */
guint playFlags() {
    const char* cache = g_get_user_cache_dir();
    const bool canDownload = g_mkdir_with_parents(cache, 0700) == 0 && access(cache, W_OK) == 0;
    return PLAY_FLAGS | (canDownload ? PLAY_FLAG_DOWNLOAD : PLAY_FLAG_BUFFERING);
}

/** The file lives as long as its descriptor: nothing is left behind, whatever becomes of the process. */
void unlinkDownload(GObject* buffer, GParamSpec* /*property*/, gpointer /*data*/) {
    gchar* location = nullptr;
    g_object_get(buffer, "temp-location", &location, nullptr);
    const TextPtr path(location);
    if (path) {
        std::remove(path.get());
    }
}

GstPadProbeReturn onTransportData(GstPad* /*pad*/, GstPadProbeInfo* info, gpointer reader) {
    GstBuffer* buffer = GST_PAD_PROBE_INFO_BUFFER(info);
    GstMapInfo bytes = GST_MAP_INFO_INIT;
    if (!buffer || !gst_buffer_map(buffer, &bytes, GST_MAP_READ)) {
        return GST_PAD_PROBE_OK;
    }
    const bool wantsMore = static_cast<ProgramMapReader*>(reader)->read(bytes.data, bytes.size);
    gst_buffer_unmap(buffer, &bytes);
    return wantsMore ? GST_PAD_PROBE_OK : GST_PAD_PROBE_REMOVE;
}

void readProgramMap(GstElement* demuxer, const std::shared_ptr<TransportStreamInfo>& info) {
    const PadPtr pad(gst_element_get_static_pad(demuxer, "sink"));
    gst_pad_add_probe(pad.get(), GST_PAD_PROBE_TYPE_BUFFER, &onTransportData, new ProgramMapReader(info),
                      &deleteUserData<ProgramMapReader>);
}

void onElementSetup(GstElement* /*playbin*/, GstElement* element, gpointer data) {
    const GstElementFactory* factory = gst_element_get_factory(element);
    const std::string kind = factory ? GST_OBJECT_NAME(factory) : "";
    if (kind == "downloadbuffer") {
        g_object_set(element, "max-size-bytes", START_BYTES, nullptr);
        g_signal_connect(element, "notify::temp-location", G_CALLBACK(&unlinkDownload), nullptr);
    } else if (kind == "tsdemux") {
        readProgramMap(element, static_cast<const StreamSettings*>(data)->transportInfo);
    }
}

} // namespace

void noteActivity(GstElement* element, const char* padName, const std::shared_ptr<LastActivity>& lastActivity) {
    const PadPtr pad(gst_element_get_static_pad(element, padName));
    if (pad) {
        gst_pad_add_probe(
            pad.get(), static_cast<GstPadProbeType>(GST_PAD_PROBE_TYPE_BUFFER | GST_PAD_PROBE_TYPE_BUFFER_LIST),
            &onData, new std::shared_ptr<LastActivity>(lastActivity), &deleteUserData<std::shared_ptr<LastActivity>>);
    }
}

void setUpStreams(GstElement* playbin, const StreamSettings& settings) {
    gst_util_set_object_arg(G_OBJECT(playbin), "flags", std::to_string(playFlags()).c_str());
    g_signal_connect_data(playbin, "source-setup", G_CALLBACK(&onSourceSetup), new StreamSettings(settings),
                          &deleteClosureData<StreamSettings>, GConnectFlags(0));
    g_signal_connect_data(playbin, "element-setup", G_CALLBACK(&onElementSetup), new StreamSettings(settings),
                          &deleteClosureData<StreamSettings>, GConnectFlags(0));
}

} // namespace media
