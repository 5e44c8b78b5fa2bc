/**
 * Reports of the desktop media player that a desk has no source for: a page can be tried against them.
 */
#ifndef MEDIA_INJECTION_H
#define MEDIA_INJECTION_H

#include "medialib.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Makes a player report, on its own thread, as if the media or its hardware were the reason. The player itself goes on
 * as before: after an error the plug-in stops it, after BUFFERING a report of PLAYING tells the end of that.
 * @param player handle of the adaptation layer; -1 for the open player that was made last
 * @param event  any report of eMEDIA_CALLBACK_EVENT
 * @param code   as eMEDIA_CALLBACK_EVENT says
 * @return 0 when there is no such player. Thread: any. Returns at once, before the report is made.
 */
int mediaInjectReport(int player, eMEDIA_CALLBACK_EVENT event, int code);

#ifdef __cplusplus
}
#endif

#endif
