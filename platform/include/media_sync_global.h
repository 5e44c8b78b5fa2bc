/**
 * The television's media-synchronisation adapter. It receives the events that a page received, so that companion
 * screens and synchronised media can follow (HbbTV inter-device synchronisation).
 *
 * Called on the browser's plug-in thread, right after the page's function has returned. The plug-in ignores the
 * results.
 */
#ifndef MEDIA_SYNC_GLOBAL_H
#define MEDIA_SYNC_GLOBAL_H

#ifdef __cplusplus
extern "C" {
#endif

/** The kind of media object that a report concerns. */
enum _media_type { BROADCAST = 1, AVCONTROL = 2, HTML5 = 3 };

/**
 * @param player    handle of the player in the adaptation layer
 * @param mediaType an _media_type value; the A/V Control object reports AVCONTROL
 * @param state     play state of the A/V Control object, 0 to 6 (OIPF DAE)
 */
int adapt_play_state_change(int player, int mediaType, int state);

/** @param speed current speed, 1 is normal */
int adapt_play_speed_change(int player, float speed);

/** @param blocked 1 when parental control blocks the content, else 0 */
int adapt_parental_rating_change(int player, int blocked);

#ifdef __cplusplus
}
#endif

#endif
