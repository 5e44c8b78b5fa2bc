/**
 * Subtitles of the desktop media player: the text that a compositor writes over a frame of media_picture.h.
 */
#ifndef MEDIA_SUBTITLES_H
#define MEDIA_SUBTITLES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Returns the text of a player's selected subtitles at one position of its media. It may change without a new frame:
 * when other subtitles are selected, and when a file has been read. The observer of media_picture.h is then called.
 * @param player handle of the adaptation layer
 * @param timeMs position in the media: MediaPicture::timeMs of the frame that is shown
 * @return null when there is no text, else UTF-8 in a block from malloc() that the caller frees. "\n" separates lines.
 *         The tags <b>, <i> and <u> are well nested and have no attributes; the characters <, > and & of the text are
 *         written as &lt;, &gt; and &amp;. There is no other markup. Thread: any. Returns at once.
 */
char* mediaSubtitlesAt(int player, int64_t timeMs);

#ifdef __cplusplus
}
#endif

#endif
