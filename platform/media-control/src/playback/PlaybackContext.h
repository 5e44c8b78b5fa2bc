/** What a playback gets from its player. */
#ifndef MEDIA_CONTROL_PLAYBACKCONTEXT_H
#define MEDIA_CONTROL_PLAYBACKCONTEXT_H

#include "gst/PlaybackId.h"
#include "gst/PlayerThread.h"
#include "playback/PlayerStatus.h"
#include "sinks/VideoOutput.h"
#include "subtitles/Subtitles.h"
#include "tracks/Components.h"

#include <memory>
#include <string>

namespace media {

struct PlaybackSettings {
    PlaybackId playback;
    std::string url;
    bool televisionUserAgent;
    bool paused;       /**< hold the first frame */
    int reportedSpeed; /**< the speed last reported to the page, in a former playback */
};

/** What a playback shares with its player, which outlives it. */
struct PlaybackContext {
    PlayerThread& thread;
    PlayerStatus& status;
    Components& components;
    std::shared_ptr<VideoOutput> videoOutput; /**< also the pipeline's, which may outlive the player */
    std::shared_ptr<Subtitles> subtitles;     /**< as videoOutput */
};

} // namespace media

#endif
