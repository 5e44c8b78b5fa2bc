/**
 * Extension of the media-player adaptation layer: the list of the media's components.
 *
 * The plug-in framework fills the A/V component collections with it. A platform may omit the function: the framework
 * binds it weakly, and the collections are then empty.
 */
#ifndef MEDIALIB_COMPONENTS_H
#define MEDIALIB_COMPONENTS_H

#include "medialib.h"

#ifdef __cplusplus
extern "C" {
#endif

/** One component of a player's media. Fields that do not apply to the type are 0 or empty. */
typedef struct Hbbtv_AL_ComponentInfo {
    AVComponentType type;
    int active;           /**< 1 when the component is shown or played */
    int pid;              /**< unique among the components of one media item; the Select functions receive it */
    int componentTag;     /**< -1 when the stream has none */
    int encrypted;        /**< 1 encrypted, 0 clear */
    char encoding[32];    /**< zero-terminated, for example "H264", "HEAAC"; empty when unknown */
    char language[8];     /**< audio, subtitle: ISO 639-2 code, "und" when unknown */
    double aspectRatio;   /**< video: width divided by height as shown, 0 when unknown */
    int audioDescription; /**< audio: 1 for an audio description */
    int audioChannels;    /**< audio: number of channels, 0 when unknown */
    int hearingImpaired;  /**< subtitle: 1 for the hard of hearing */
} Hbbtv_AL_ComponentInfo;

/**
 * Lists the components of one type in the player's media.
 * @param player     handle from Hbbtv_AL_MediaPlayerOpen
 * @param type       0 video, 1 audio, 2 subtitle
 * @param components receives the list, in the order of the media; may be null when `capacity` is 0
 * @param capacity   number of entries that fit into `components`; the plug-in framework passes 256
 * @return the number of components, even when it exceeds `capacity`; the list then ends there. 0 without media
 * Thread: the browser's plug-in thread. Returns at once.
 */
int Hbbtv_AL_MediaPlayerGetComponents(int player, int type, Hbbtv_AL_ComponentInfo* components, int capacity);

#ifdef __cplusplus
}
#endif

#endif
