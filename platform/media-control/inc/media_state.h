/**
 * State of the desktop media player's players, for those who observe them: a panel, a recorder, a watchdog.
 *
 * Nothing here changes a player. An observer that wants to know when something happens, rather than how things stand,
 * uses media_trace.h. Handles are those of the adaptation layer. Threads: any, also while another thread commands the
 * player. Each function returns at once; none may be called from the callback of media_trace.h.
 */
#ifndef MEDIA_STATE_H
#define MEDIA_STATE_H

#include "medialib.h"

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** How far a player is with its media. */
typedef enum MediaStatePhase {
    MEDIA_STATE_STOPPED,  /**< nothing was started yet, or Stop ended it */
    MEDIA_STATE_STARTED,  /**< connecting, playing, paused or waiting for data; `speed` and `bufferPercent` say more */
    MEDIA_STATE_FINISHED, /**< the media has come to its end */
    MEDIA_STATE_FAILED    /**< an error was reported */
} MediaStatePhase;

/** A player at one moment. */
typedef struct MediaState {
    MediaStatePhase phase;
    int speed; /**< in force: 1 is normal, negative backwards; 0 while paused, and before and after the media */
    int64_t positionMs; /**< -1 before the first start of the media */
    int durationMs;     /**< 0 when the media has no known end, -1 before the first start of the media */
    int bufferPercent;  /**< below 100 playback waits for data; 100 also when nothing is being buffered */
} MediaState;

/** One track of a player's media. */
typedef struct MediaStateTrack {
    AVComponentType type;
    int active;        /**< 1 when it is the one that is seen or heard */
    char encoding[32]; /**< for example "H264", "HEAAC"; empty when not known */
    char language[8];  /**< audio, subtitles: ISO 639-2 code, "und" when not known; video: empty */
} MediaStateTrack;

/**
 * Reads a player's state.
 * @param state left as it is when the player is not open
 * @return 1, or 0 when the player is not open
 */
int mediaStateRead(int player, MediaState* state);

/**
 * Lists the tracks of a player's media: video, then audio, then subtitles, each type in the order of the media.
 * @param tracks   receives the list; may be null when `capacity` is 0
 * @param capacity number of tracks that `tracks` has room for; further tracks are left out
 * @return how many tracks there are, which may be more than `capacity`; 0 without media or when the player is not open
 */
int mediaStateTracks(int player, MediaStateTrack* tracks, int capacity);

#ifdef __cplusplus
}
#endif

#endif
