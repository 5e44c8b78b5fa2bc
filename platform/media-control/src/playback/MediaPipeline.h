/** The pipeline of one playback: its elements, from their making to their end, and what they know of the media. */
#ifndef MEDIA_CONTROL_MEDIAPIPELINE_H
#define MEDIA_CONTROL_MEDIAPIPELINE_H

#include "gst/GstPointer.h"
#include "playback/PlaybackContext.h"
#include "playback/StreamSetup.h"
#include "sinks/VideoSink.h"

#include <cstdint>
#include <memory>

namespace media {

/**
 * Owns a playbin with the player's sinks. It starts nothing; it ends the pipeline as its state allows.
 *
 * Times are milliseconds of the media, which begins at 0, but for originMs(). Thread: the player's.
 */
class MediaPipeline {
public:
    /** @param lastActivity gets the time at which data last moved */
    MediaPipeline(const PlaybackContext& context, const PlaybackSettings& settings,
                  const std::shared_ptr<LastActivity>& lastActivity);
    ~MediaPipeline();

    MediaPipeline(const MediaPipeline&) = delete;
    MediaPipeline& operator=(const MediaPipeline&) = delete;

    /** @return the playbin; null when GStreamer lacks an element, and after end() */
    GstElement* element() const { return m_playbin.get(); }

    /** Scales the frames that come from now on to the window. */
    void fitWindow() { m_videoSink.fitWindow(); }

    bool hasPrerolled() const { return m_preroll == Preroll::DONE; }

    /** Notes that the pipeline has its first frame, and finds out where in its time the media begins. */
    void setPrerolled();

    /** Notes that the pipeline has reported an error. */
    void setFailed() { m_preroll = Preroll::FAILED; }

    /** @return the pipeline's time at the media's position 0; 0 until it has prerolled */
    int64_t originMs() const { return m_originMs; }

    /** @return the duration when it was last read; 0 when unknown */
    int durationMs() const { return m_durationMs; }

    /** Reads the duration from the pipeline. @return it */
    int readDuration();

    bool isSeekable() const;

    /** @return true when the last frame stands well before the end: data is missing. Only at normal speed. */
    bool breaksOffEarly() const;

    /** Shuts the pipeline down, later where that is not safe yet. The bus watch must be gone. */
    void end();

private:
    enum class Preroll { UNDER_WAY, DONE, FAILED };

    bool build(const PlaybackContext& context, const PlaybackSettings& settings,
               const std::shared_ptr<LastActivity>& lastActivity);

    PlayerThread& m_thread;
    VideoSink m_videoSink;
    ElementPtr m_audioSink;
    ElementPtr m_playbin;
    Preroll m_preroll = Preroll::UNDER_WAY;
    int64_t m_originMs = 0;
    int m_durationMs = 0;
};

} // namespace media

#endif
