/** What GStreamer's HTTP library does for a media and GStreamer keeps to itself. */
#ifndef MEDIA_CONTROL_HTTPOBSERVER_H
#define MEDIA_CONTROL_HTTPOBSERVER_H

#include "gst/PlaybackId.h"
#include "gst/PlayerThread.h"

#include <string>

namespace media {

/**
 * While it lives, the answers to a media's requests for playlists, segments and the like are told to the observer of
 * media_trace.h, and it is kept how far the connection for the media's own address got. The HTTP library does not know
 * the media: with several at once each answer is told of the media whose address begins most like the request's.
 * Answers to the media's own address are those of RequestTrace.h.
 */
class HttpObserver {
public:
    /**
     * @param thread where the responses are traced; outlives this
     * @param url    of the media, absolute
     */
    HttpObserver(PlayerThread& thread, int player, PlaybackId playback, const std::string& url);
    ~HttpObserver();

    HttpObserver(const HttpObserver&) = delete;
    HttpObserver& operator=(const HttpObserver&) = delete;

    /** @return for people: what a failed connection for the media's own address failed in; empty when not known. Any
     *          thread. */
    std::string failure() const;

private:
    const PlaybackId m_playback;
};

} // namespace media

#endif
