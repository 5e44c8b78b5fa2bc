/** The number of a playback. */
#ifndef MEDIA_CONTROL_PLAYBACKID_H
#define MEDIA_CONTROL_PLAYBACKID_H

#include <atomic>

namespace media {

/**
 * Identifies one playback of one player: what reaches others late, from a thread or a library of a playback that is
 * over, carries it and is recognised by it. An id is never reused in the process.
 */
enum class PlaybackId : unsigned { NONE = 0 };

/** @return a new id. Thread: any. */
inline PlaybackId nextPlaybackId() {
    static std::atomic<unsigned> last{0};
    return static_cast<PlaybackId>(++last);
}

} // namespace media

#endif
