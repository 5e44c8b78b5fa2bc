/**
 * Picture interface of the desktop media player: the newest video frame of each player, for a compositor.
 */
#ifndef MEDIA_PICTURE_H
#define MEDIA_PICTURE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A video frame. The pixels belong to the player and stay valid until mediaPictureRelease. */
typedef struct MediaPicture {
    const unsigned char* pixels; /**< first row on top, 4 bytes a pixel: blue, green, red, unused */
    int stride;                  /**< bytes from row to row */
    int width;                   /**< pixels, the window's width as soon as the player has scaled to it */
    int height;                  /**< pixels */
    int64_t timeMs;              /**< position of the frame in the media */
    uint64_t serial;             /**< differs from frame to frame of a player */
    void* owner;                 /**< the player's, do not touch */
} MediaPicture;

/** Where a player's picture belongs on the 1280x720 screen, as Hbbtv_AL_MediaPlayerSetWindow said last. */
typedef struct MediaPictureWindow {
    int player; /**< handle of the adaptation layer */
    int x, y;   /**< left and top edge, pixels */
    int width, height;
} MediaPictureWindow;

/** Called when a player has a new frame, a new window, or has lost its picture. Any thread: only notify, never wait. */
typedef void (*MediaPictureCallback)(int player, void* userData);

/**
 * Sets the function to be told of changes; null ends it. When this function returns, no call to the former function
 * runs or will come.
 */
void mediaPictureSetCallback(MediaPictureCallback callback, void* userData);

/**
 * Lists the windows of the players that have a picture to show, in the order in which the players were opened.
 * @return how many there are, at most `capacity`. Thread: any.
 */
int mediaPictureWindows(MediaPictureWindow* windows, int capacity);

/**
 * Takes hold of a player's newest frame.
 * @return 1 and a frame to be given back with mediaPictureRelease, or 0 when the player has none. Thread: any.
 */
int mediaPictureAcquire(int player, MediaPicture* picture);

/** Gives a frame back. Thread: any. */
void mediaPictureRelease(MediaPicture* picture);

#ifdef __cplusplus
}
#endif

#endif
