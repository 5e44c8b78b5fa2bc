/** The audio output. */
#ifndef MEDIA_CONTROL_AUDIOSINK_H
#define MEDIA_CONTROL_AUDIOSINK_H

#include <gst/gst.h>

namespace media {

/**
 * Makes an audio output. The kind is chosen once for the process: what the environment variable AVCONTROL_AUDIO_SINK
 * describes (in the words of gst-launch, for example "alsasink device=hw:0"), else the sound server when
 * one answers, else silence that keeps time.
 * @return a floating element, or null when GStreamer lacks it. Thread: a player's; the first call may take some 100 ms.
 */
GstElement* makeAudioSink();

} // namespace media

#endif
