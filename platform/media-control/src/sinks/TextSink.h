/** The way of a media's own subtitles out of its pipeline, into the player's Subtitles. */
#ifndef MEDIA_CONTROL_TEXTSINK_H
#define MEDIA_CONTROL_TEXTSINK_H

#include "subtitles/Subtitles.h"

#include <memory>

namespace media {

/**
 * @param subtitles gets the cues, marked with `playback`, as soon as they are known, which is before they show
 * @return a new element, or null when GStreamer lacks it
 */
GstElement* makeTextSink(const std::shared_ptr<Subtitles>& subtitles, PlaybackId playback);

} // namespace media

#endif
