/** How a playback's media comes in: playbin's features, its requests, its download. */
#ifndef MEDIA_CONTROL_STREAMSETUP_H
#define MEDIA_CONTROL_STREAMSETUP_H

#include "tracks/TransportStreamInfo.h"

#include <atomic>
#include <gst/gst.h>
#include <memory>
#include <string>

namespace media {

/** When data last moved in a pipeline, in g_get_monotonic_time(); the streaming threads leave it for the watchdog. */
using LastActivity = std::atomic<gint64>;

struct StreamSettings {
    std::string url;
    bool televisionUserAgent;
    std::shared_ptr<LastActivity> lastActivity;          /**< gets the moments at which data comes from the server */
    std::shared_ptr<TransportStreamInfo> transportMarks; /**< gets those of the media, if it is a transport stream */
};

/** Sets up a playbin that has not been started. */
void setUpStreams(GstElement* playbin, const StreamSettings& settings);

/** Notes in `lastActivity` whenever data passes a pad of the element. */
void noteActivity(GstElement* element, const char* padName, const std::shared_ptr<LastActivity>& lastActivity);

} // namespace media

#endif
