/**
 * Injected reports: a page can be tried against what the desktop media player never reports by itself, such as missing
 * rights.
 */
#ifndef MEDIA_INJECTION_H
#define MEDIA_INJECTION_H

#include "medialib.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Makes a player report as if the media or the hardware were the reason. The player itself goes on as before: after an
 * error the plug-in stops it; BUFFERING lasts until PLAYING is injected.
 * @param player handle of the adaptation layer; -1 for the open player that was made last
 * @param event  any report of eMEDIA_CALLBACK_EVENT
 * @param code   the report's code, as described at eMEDIA_CALLBACK_EVENT
 * @return 1, or 0 when there is no such player or report. Thread: any. Returns at once; the report follows on the
 *         player's thread.
 */
int mediaInjectReport(int player, eMEDIA_CALLBACK_EVENT event, int code);

#ifdef __cplusplus
}
#endif

#endif
