/** Observes the HTTP library for one playback. */
#ifndef MEDIA_CONTROL_HTTPOBSERVER_H
#define MEDIA_CONTROL_HTTPOBSERVER_H

#include "gst/PlaybackId.h"
#include "gst/PlayerThread.h"

#include <string>

namespace media {

/**
 * Observes the HTTP library that GStreamer uses: traces the responses to the media's requests for playlists, segments
 * and the like, and records how far the connection for the media's own address got, which GStreamer does not expose.
 *
 * The HTTP library does not know which media a message is for. A message for the address of a media item belongs to it
 * for good; any other one is traced for the media item whose address begins most like the message's. RequestTrace.h
 * traces the responses to the media's own address. Threads: any.
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

    /** @return for people: why the connection for the media's own address failed; empty when unknown */
    std::string failure() const;

private:
    const PlaybackId m_playback;
};

} // namespace media

#endif
