/**
 * Video frames of the desktop media player: the newest one of each player and its window, for a compositor.
 */
#ifndef MEDIA_PICTURE_H
#define MEDIA_PICTURE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A video frame. The pixels belong to the player and stay valid until mediaPictureRelease(). */
typedef struct MediaPicture {
    const unsigned char* pixels; /**< the top row first; 4 bytes a pixel: blue, green, red, unused */
    int stride;                  /**< bytes from row to row */
    int width;                   /**< pixels; the window's width as soon as the player has scaled to it */
    int height;                  /**< pixels */
    int64_t timeMs;              /**< position of the frame in the media */
    uint64_t serial;             /**< differs from frame to frame of a player */
    void* owner;                 /**< for mediaPictureRelease(); leave it as it is */
} MediaPicture;

/** The rectangle of the 1280x720 screen that Hbbtv_AL_MediaPlayerSetWindow last gave to a player. */
typedef struct MediaPictureWindow {
    int player; /**< handle of the adaptation layer */
    int x, y;   /**< left and top edge, pixels */
    int width, height;
} MediaPictureWindow;

/**
 * The observer: a player has a new frame, a new window or other subtitles, or has lost its frame. It may be called on
 * any thread, one call at a time, and must return without waiting for another thread.
 */
typedef void (*MediaPictureCallback)(int player, void* userData);

/**
 * Sets the observer; null removes it. When this function returns, no call of the former observer runs or will come.
 * Thread: any, but not the observer.
 */
void mediaPictureSetCallback(MediaPictureCallback callback, void* userData);

/**
 * Lists the windows of the players that have a frame to show, in the order in which the players were opened.
 * @param capacity number of windows that `windows` has room for; further windows are left out
 * @return how many windows were written. Thread: any.
 */
int mediaPictureWindows(MediaPictureWindow* windows, int capacity);

/**
 * Acquires a player's newest frame.
 * @return 1 and a frame to be released with mediaPictureRelease(), or 0 when the player has none. Thread: any.
 */
int mediaPictureAcquire(int player, MediaPicture* picture);

/** Releases a frame and empties the record. Thread: any. */
void mediaPictureRelease(MediaPicture* picture);

#ifdef __cplusplus
}
#endif

#endif
