#include "gst/MissingPlugin.h"

#include "gst/GstPointer.h"

#include <gst/pbutils/missing-plugins.h>

namespace media {
namespace {

/** The Debian package that handles a media type, by the beginning of the type's name. */
struct PackageOfType {
    const char* type;
    const char* package;
};

constexpr PackageOfType PACKAGES[] = {
    {"video/quicktime", "gstreamer1.0-plugins-good"},
    {"audio/x-m4a", "gstreamer1.0-plugins-good"},
    {"video/x-matroska", "gstreamer1.0-plugins-good"},
    {"audio/x-matroska", "gstreamer1.0-plugins-good"},
    {"video/webm", "gstreamer1.0-plugins-good"},
    {"audio/webm", "gstreamer1.0-plugins-good"},
    {"video/x-vp8", "gstreamer1.0-plugins-good"},
    {"video/x-vp9", "gstreamer1.0-plugins-good"},
    {"video/x-av1", "gstreamer1.0-plugins-bad"},
    {"video/mpegts", "gstreamer1.0-plugins-bad"},
    {"application/x-hls", "gstreamer1.0-plugins-bad"},
    {"application/dash+xml", "gstreamer1.0-plugins-bad"},
    {"application/vnd.ms-sstr+xml", "gstreamer1.0-plugins-bad"},
    {"video/x-ms-asf", "gstreamer1.0-plugins-ugly"},
    {"application/ogg", "gstreamer1.0-plugins-base"},
    {"audio/x-opus", "gstreamer1.0-plugins-base"},
    {"audio/x-vorbis", "gstreamer1.0-plugins-base"},
    {"video/x-theora", "gstreamer1.0-plugins-base"},
};

const char* packageFor(const std::string& type) {
    for (const PackageOfType& known : PACKAGES) {
        if (type.rfind(known.type, 0) == 0) {
            return known.package;
        }
    }
    return "gstreamer1.0-libav";
}

} // namespace

MissingPlugin describeMissingPlugin(GstMessage* message) {
    const TextPtr description(gst_missing_plugin_message_get_description(message));
    const GstStructure* structure = gst_message_get_structure(message);
    const GValue* detail = gst_structure_get_value(structure, "detail");
    std::string type;
    if (detail && GST_VALUE_HOLDS_CAPS(detail)) {
        type = gst_structure_get_name(gst_caps_get_structure(gst_value_get_caps(detail), 0));
    }
    // Subtitles and data beside video and audio are no reason not to play.
    const bool isNeeded = type.rfind("text/", 0) != 0 && type.rfind("subpicture/", 0) != 0 &&
                          type.rfind("application/x-subtitle", 0) != 0;
    const std::string what = std::string("no ") + description.get();
    if (type.empty()) {
        return {what, isNeeded}; // no media type but an unknown kind of address
    }
    return {what + " for " + type + "; install the package " + packageFor(type), isNeeded};
}

std::string missingElementsAdvice() {
    return "GStreamer's playback elements are missing; install the packages gstreamer1.0-plugins-base and "
           "gstreamer1.0-plugins-good";
}

} // namespace media
