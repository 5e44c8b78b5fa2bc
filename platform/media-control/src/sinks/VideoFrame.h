/** A decoded video frame, as media_picture.h hands it out. */
#ifndef MEDIA_CONTROL_VIDEOFRAME_H
#define MEDIA_CONTROL_VIDEOFRAME_H

#include "gst/GstPointer.h"
#include "media_picture.h"

namespace media {

/**
 * Maps the pixels of a BGRx sample and fills all of `frame` but its serial number; the time is the stream's.
 * @return false, with `frame` as it was, when the sample cannot be mapped; else releaseFrame() unmaps and frees it
 */
bool mapFrame(SamplePtr sample, MediaPicture& frame);

/** Gives a frame back and empties it. An empty frame stays as it is. */
void releaseFrame(MediaPicture& frame);

} // namespace media

#endif
