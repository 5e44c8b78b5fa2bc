/**
 * Extension of the media-player adaptation layer: the list of a media's components.
 *
 * The plug-in framework fills the A/V component collections with it. A platform without it leaves the function out:
 * the framework binds it weakly, and the collections are then empty.
 */
#ifndef MEDIALIB_COMPONENTS_H
#define MEDIALIB_COMPONENTS_H

#include "medialib.h"

#ifdef __cplusplus
extern "C" {
#endif

/** One component of a player's media. Fields that a type does not have are 0 or empty. */
typedef struct Hbbtv_AL_ComponentInfo {
    AVComponentType type;
    int active;           /**< 1 when it is the one that is seen or heard */
    int pid;              /**< tells the components of one media apart; the Select functions get it back */
    int componentTag;     /**< -1 when the stream has none */
    int encrypted;        /**< 1 encrypted, 0 clear */
    char encoding[32];    /**< zero-terminated, for example "H264", "HEAAC"; empty when not known */
    char language[8];     /**< audio, subtitle: ISO 639-2 code, "und" when not known */
    double aspectRatio;   /**< video: width divided by height as shown, 0 when not known */
    int audioDescription; /**< audio: 1 for an audio description */
    int audioChannels;    /**< audio: number of channels, 0 when not known */
    int hearingImpaired;  /**< subtitle: 1 for the hard of hearing */
} Hbbtv_AL_ComponentInfo;

/**
 * Lists the components of one type in the media that the player holds.
 * @param player     handle of Hbbtv_AL_MediaPlayerOpen
 * @param type       0 video, 1 audio, 2 subtitle
 * @param components receives the list, in the order of the media; may be null when `capacity` is 0
 * @param capacity   room in `components`
 * @return how many there are; 0 without media. Those beyond `capacity`, for which the plug-in framework gives 256, are
 *         left out.
 * Thread: the browser's plug-in thread. Returns at once.
 */
int Hbbtv_AL_MediaPlayerGetComponents(int player, int type, Hbbtv_AL_ComponentInfo* components, int capacity);

#ifdef __cplusplus
}
#endif

#endif
