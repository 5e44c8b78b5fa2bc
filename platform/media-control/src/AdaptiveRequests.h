/** What HLS and DASH ask for beside their manifest, for the observer of media_trace.h. */
#ifndef MEDIA_CONTROL_ADAPTIVEREQUESTS_H
#define MEDIA_CONTROL_ADAPTIVEREQUESTS_H

#include "PlayerThread.h"

#include <string>

namespace media {

/**
 * While it lives, the answers to a media's requests for playlists, segments and the like are traced. They come from
 * GStreamer's HTTP library, which does not know the media: with several at once each answer is told of the media whose
 * address begins most like the request's. Requests for the media's own address are those of RequestTrace.h.
 */
class AdaptiveRequests {
public:
    /** @param thread where the answers are traced; outlives this @param url of the media, absolute. Thread: any. */
    AdaptiveRequests(PlayerThread& thread, int player, const std::string& url);
    ~AdaptiveRequests();

    AdaptiveRequests(const AdaptiveRequests&) = delete;
    AdaptiveRequests& operator=(const AdaptiveRequests&) = delete;
};

} // namespace media

#endif
