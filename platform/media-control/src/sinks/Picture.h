/** A player's picture: its newest frame and its place on the screen. */
#ifndef MEDIA_CONTROL_PICTURE_H
#define MEDIA_CONTROL_PICTURE_H

#include "gst/GstPointer.h"
#include "gst/PlaybackId.h"
#include "media_picture.h"

#include <mutex>

namespace media {

class Picture {
public:
    explicit Picture(int player);

    /** Frames of this playback are shown from now on. Thread: any, as for all the others. */
    void open(PlaybackId playback);

    /** Position 0 is there in the time of the playback's frames. A playback starts with 0. */
    void setOrigin(PlaybackId playback, int64_t ms);

    /** Shows no frame, though they come. A playback starts with showing them. */
    void setHidden(PlaybackId playback, bool hidden);

    /** Drops the frame and shows none that come late. */
    void close();

    /** Keeps the frame and shows none that come late. */
    void hold();

    /** A new frame; ignored unless its playback is the open one. */
    void show(PlaybackId playback, SamplePtr sample);

    /** @return false when the place is the same as before */
    bool setWindow(int x, int y, int width, int height);
    MediaPictureWindow window() const;

    /** @return true when there is a frame and a place to show it */
    bool isVisible() const;

    /** Tells the compositor that what lies over the picture has changed. */
    void tellChange() const;

    /** As mediaPictureAcquire. */
    bool acquire(MediaPicture& picture) const;

private:
    const int m_player;
    mutable std::mutex m_mutex;               // guards all below
    PlaybackId m_playback = PlaybackId::NONE; // NONE: closed
    SamplePtr m_sample;
    uint64_t m_serial = 0;
    int64_t m_origin = 0;
    bool m_hidden = false;
    MediaPictureWindow m_window;
};

} // namespace media

#endif
