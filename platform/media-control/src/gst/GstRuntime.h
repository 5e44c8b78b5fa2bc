/** GStreamer itself: started once for all players. */
#ifndef MEDIA_CONTROL_GSTRUNTIME_H
#define MEDIA_CONTROL_GSTRUNTIME_H

#include <string>

namespace media {

/**
 * Starts GStreamer and loads what a usual film needs, so that the first film does not have to wait for it. Only the
 * first call works (up to seconds when GStreamer has to list its plug-ins); others wait for it. Thread: a player's.
 * @return empty, or why there is no GStreamer
 */
const std::string& prepareGstreamer();

} // namespace media

#endif
