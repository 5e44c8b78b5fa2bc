/** A player's video output: its newest frame and its window rectangle. */
#ifndef MEDIA_CONTROL_VIDEOOUTPUT_H
#define MEDIA_CONTROL_VIDEOOUTPUT_H

#include "GuardedMutex.h"
#include "gst/GstPointer.h"
#include "gst/PlaybackId.h"
#include "media_picture.h"

namespace media {

/** As mediaPictureSetCallback; the observer is the process's. */
void setVideoObserver(MediaPictureCallback callback, void* userData);

/**
 * The newest frame of a player and the rectangle of the screen that it belongs to. A pipeline's thread presents frames,
 * a compositor's acquires them; each change is reported to the observer. Threads: any.
 *
 * Frames come on as long as their pipeline lives, which is longer than its playback: those of any playback but the one
 * that open() named are ignored.
 */
class VideoOutput {
public:
    explicit VideoOutput(int player);

    /** From now on the frames of this playback are shown; the former frame stays until the first one comes. */
    void open(PlaybackId playback);

    /** Sets which time of the playback's frames is position 0. It is 0 until then. */
    void setOrigin(PlaybackId playback, int64_t ms);

    /** Hides the frames, which come on all the same, or shows them, as a playback does from its start. */
    void setHidden(PlaybackId playback, bool hidden);

    /** Drops the frame and ignores later ones. */
    void clear();

    /** Keeps the frame and ignores later ones. */
    void freeze();

    /** Makes this the newest frame. */
    void present(PlaybackId playback, SamplePtr frame);

    void setWindow(int x, int y, int width, int height);
    MediaPictureWindow window() const;

    /** @return true when there is a frame to show and a window that is not empty */
    bool isVisible() const;

    /** Reports that what is written over the frame has changed. */
    void notifyOverlayChange() const;

    /** As mediaPictureAcquire. */
    bool acquire(MediaPicture& frame) const;

private:
    const int m_player;
    mutable support::Mutex m_mutex;
    PlaybackId m_playback GUARDED_BY(m_mutex) = PlaybackId::NONE; // whose frames are shown
    SamplePtr m_frame GUARDED_BY(m_mutex);
    uint64_t m_serial GUARDED_BY(m_mutex) = 0;
    int64_t m_origin GUARDED_BY(m_mutex) = 0;
    bool m_hidden GUARDED_BY(m_mutex) = false;
    MediaPictureWindow m_window GUARDED_BY(m_mutex);
};

} // namespace media

#endif
