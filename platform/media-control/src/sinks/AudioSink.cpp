#include "sinks/AudioSink.h"

#include "Result.h"
#include "gst/GstPointer.h"
#include "trace/MediaLog.h"

#include <cstdlib>
#include <string>

namespace media {
namespace {

// Without sync the position would run ahead of the video.
constexpr const char* SILENCE = "fakesink sync=true";

// Not by the sound server's clock: after a pause or a seek it may stand still for a second, and the video with it.
constexpr const char* SOUND_SERVER = "pulsesink provide-clock=false";

constexpr const char* OVERRIDE_VARIABLE = "AVCONTROL_AUDIO_SINK";

/** @return a floating element, or why GStreamer cannot make it */
support::Result<GstElement*, std::string> makeSink(const std::string& description) {
    GError* reason = nullptr;
    GstElement* sink = gst_parse_bin_from_description_full(
        description.c_str(), TRUE, nullptr,
        static_cast<GstParseFlags>(GST_PARSE_FLAG_FATAL_ERRORS | GST_PARSE_FLAG_NO_SINGLE_ELEMENT_BINS |
                                   GST_PARSE_FLAG_PLACE_IN_BIN),
        &reason);
    const ErrorPtr error(reason);
    if (!sink) {
        return support::Failure{std::string(error ? error->message : "no reason given")};
    }
    return sink;
}

bool soundServerAnswers() {
    GstElement* made = gst_element_factory_make("pulsesink", nullptr);
    if (!made) {
        return false;
    }
    gst_object_ref_sink(made);
    const ElementPtr sink(made);
    const bool answers = gst_element_set_state(sink.get(), GST_STATE_READY) == GST_STATE_CHANGE_SUCCESS;
    gst_element_set_state(sink.get(), GST_STATE_NULL);
    return answers;
}

std::string chooseSink() {
    const char* wanted = std::getenv(OVERRIDE_VARIABLE);
    if (wanted && *wanted) {
        const auto sink = makeSink(wanted);
        if (sink) {
            gst_object_unref(gst_object_ref_sink(*sink));
            return wanted;
        }
        MEDIA_LOG_ERROR(std::string(OVERRIDE_VARIABLE) + " is \"" + wanted + "\", which GStreamer cannot make: " +
                        sink.reason() + ". It is ignored; describe a sink, for example \"alsasink device=hw:0\".");
    }
    return soundServerAnswers() ? SOUND_SERVER : SILENCE;
}

} // namespace

GstElement* makeAudioSink() {
    // Never destroyed: a player's thread may still run while the process ends.
    static const std::string& description = *new std::string(chooseSink());
    auto sink = makeSink(description);
    if (!sink) {
        sink = makeSink(SILENCE);
    }
    return sink ? *sink : nullptr;
}

} // namespace media
