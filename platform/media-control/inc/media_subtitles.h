/**
 * Subtitles of the desktop media player: what a compositor writes over a picture of media_picture.h.
 */
#ifndef MEDIA_SUBTITLES_H
#define MEDIA_SUBTITLES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Says what the selected subtitles of a player have for a moment of its media. The callback of media_picture.h tells
 * when the answer for the picture on show may have changed without a new picture: another selection, a file that has
 * been read.
 * @param player handle of the adaptation layer
 * @param timeMs position in the media, that of the picture on show: MediaPicture::timeMs
 * @return null for nothing, else a text in UTF-8 in a block from malloc() that becomes the caller's. Lines are
 * separated by "\n". The marks <b>, <i> and <u> are well nested and have no attributes; the characters <, > and & of
 * the text stand as &lt;, &gt; and &amp;. There is no other markup. Thread: any. Returns at once.
 */
char* mediaSubtitlesAt(int player, int64_t timeMs);

#ifdef __cplusplus
}
#endif

#endif
