/** How the media comes into a playbin: its features, its requests, its download. */
#ifndef MEDIA_CONTROL_STREAMSETUP_H
#define MEDIA_CONTROL_STREAMSETUP_H

#include "tracks/TransportStreamInfo.h"

#include <atomic>
#include <gst/gst.h>
#include <memory>
#include <string>

namespace media {

/** When data last moved in a pipeline, by g_get_monotonic_time(): streaming threads set it, the watchdog reads it. */
using LastActivity = std::atomic<gint64>;

struct StreamSettings {
    std::string url;
    bool televisionUserAgent;
    std::shared_ptr<LastActivity> lastActivity;         /**< set when data comes from the server */
    std::shared_ptr<TransportStreamInfo> transportInfo; /**< filled in, if the media is a transport stream */
};

/** Sets up a playbin that has not been started. */
void setUpStreams(GstElement* playbin, const StreamSettings& settings);

/** Sets `lastActivity` whenever data passes a pad of the element. */
void noteActivity(GstElement* element, const char* padName, const std::shared_ptr<LastActivity>& lastActivity);

} // namespace media

#endif
