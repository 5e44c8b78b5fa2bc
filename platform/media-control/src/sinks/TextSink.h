/** The way of the media's own subtitles out of the pipeline, into the player's Subtitles. */
#ifndef MEDIA_CONTROL_TEXTSINK_H
#define MEDIA_CONTROL_TEXTSINK_H

#include "subtitles/Subtitles.h"

#include <memory>

namespace media {

/**
 * @param subtitles gets the playback's cues as soon as they are known, which is before they show
 * @return a floating element, or null when GStreamer lacks it
 */
GstElement* makeTextSink(const std::shared_ptr<Subtitles>& subtitles, PlaybackId playback);

} // namespace media

#endif
