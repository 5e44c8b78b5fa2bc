/** What a person has to install when GStreamer lacks something. */
#ifndef MEDIA_CONTROL_MISSINGPLUGIN_H
#define MEDIA_CONTROL_MISSINGPLUGIN_H

#include <gst/gst.h>
#include <string>

namespace media {

struct MissingPlugin {
    std::string advice; /**< for people: what is missing and the Debian package that brings it */
    bool isNeeded;      /**< the media cannot be shown as it should without it */
};

/** @param message an element message for which gst_is_missing_plugin_message holds */
MissingPlugin describeMissingPlugin(GstMessage* message);

/** @return for people: that GStreamer's basic elements are not there, and the packages that bring them */
std::string missingElementsAdvice();

} // namespace media

#endif
