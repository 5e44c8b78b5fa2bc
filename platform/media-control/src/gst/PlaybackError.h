/** GStreamer's errors in the terms of the A/V Control object. */
#ifndef MEDIA_CONTROL_PLAYBACKERROR_H
#define MEDIA_CONTROL_PLAYBACKERROR_H

#include <gst/gst.h>
#include <string>

namespace media {

/** Values of the A/V Control object's `error` property (OIPF DAE). */
enum class PlaybackErrorCode {
    FORMAT_NOT_SUPPORTED = 0,
    BAD_CONNECTION = 1,
    UNDEFINED = 2,
    INSUFFICIENT_RESOURCES = 3,
    CONTENT_CORRUPT = 4,
    CONTENT_NOT_AVAILABLE = 5,
    POSITION_NOT_AVAILABLE = 6
};

struct PlaybackError {
    PlaybackErrorCode code;
    std::string cause;    /**< for people */
    bool isVague = false; /**< GStreamer only says that the connection failed, not how */
};

/**
 * @param message   an error message. Only a pipeline's first one names the cause; the others are its consequences.
 * @param isSeeking true when the pipeline is on its way to another position
 */
PlaybackError describeError(GstMessage* message, bool isSeeking);

} // namespace media

#endif
