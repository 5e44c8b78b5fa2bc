/** GStreamer itself: started once for all players. */
#ifndef MEDIA_CONTROL_GSTRUNTIME_H
#define MEDIA_CONTROL_GSTRUNTIME_H

#include "Result.h"

#include <string>

namespace media {

/**
 * Starts GStreamer and loads what usual media need, so that the first media item does not have to wait for it. Only the
 * first call works (up to seconds when GStreamer has to list its plug-ins); others wait for it. Thread: a player's.
 * @return for people: why there is no GStreamer
 */
const support::Result<void, std::string>& prepareGstreamer();

} // namespace media

#endif
