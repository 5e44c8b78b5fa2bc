#include "gst/GstRuntime.h"

#include "gst/GstPointer.h"

#include <gst/pbutils/pbutils.h>
#include <initializer_list>

namespace media {
namespace {

using Outcome = support::Result<void, std::string>;

/**
 * An engine may register a source of its own for web addresses in this process, ranked before all others, which only
 * works inside the engine's own media element.
 */
void preferOwnHttpSource() {
    constexpr guint BEFORE_ALL_OTHERS = GST_RANK_PRIMARY * 8;
    GstPluginFeature* source = gst_registry_lookup_feature(gst_registry_get(), "souphttpsrc");
    if (source) {
        gst_plugin_feature_set_rank(source, BEFORE_ALL_OTHERS);
        gst_object_unref(source);
    }
}

Outcome start() {
    GError* reason = nullptr;
    if (!gst_init_check(nullptr, nullptr, &reason)) {
        const ErrorPtr error(reason);
        return support::Failure{std::string("GStreamer does not start: ") +
                                (error ? error->message : "no reason given")};
    }
    gst_pb_utils_init();
    preferOwnHttpSource();
    for (const char* name : {"souphttpsrc", "qtdemux", "h264parse", "avdec_h264", "avdec_aac"}) {
        const ElementPtr element(gst_element_factory_make(name, nullptr));
        if (element) {
            gst_object_ref_sink(element.get());
        }
    }
    return {};
}

} // namespace

const Outcome& prepareGstreamer() {
    // Never destroyed: a player's thread may still run while the process ends.
    static const Outcome& outcome = *new Outcome(start());
    return outcome;
}

} // namespace media
