/**
 * The media-player adaptation layer: what the A/V Control plug-in needs of a television's media player.
 *
 * Whoever ports the plug-in implements these functions with C linkage. Common to all of them:
 * - `player` is a handle that Hbbtv_AL_MediaPlayerOpen wrote. A handle that is not open (-1 among them) is refused.
 * - They are called on the browser's plug-in thread, several players in turn, and must return without waiting for
 *   the network, the decoder or the callback: whatever takes time is reported later through the callback.
 * - Times are milliseconds. Texts are zero-terminated UTF-8 of the caller, to be copied if needed after the return.
 * - Results are int. The transport commands (Play, Pause, Resume, Stop, Seek) fail only with 0; SetWindow and
 *   AddResourceCallback succeed only with 1; other results are not looked at by the plug-in, 1 and 0 are customary.
 */
#ifndef MEDIALIB_H
#define MEDIALIB_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** What the player reports; beside each name the meaning of the report's `code`. */
typedef enum eMEDIA_CALLBACK_EVENT {
    eMEDIA_CALLBACK_STOPPED = 1,                     /**< code not used */
    eMEDIA_CALLBACK_PLAYING = 2,                     /**< code not used */
    eMEDIA_CALLBACK_PAUSED = 3,                      /**< code not used */
    eMEDIA_CALLBACK_CONNECTING = 4,                  /**< code not used */
    eMEDIA_CALLBACK_BUFFERING = 5,                   /**< code not used */
    eMEDIA_CALLBACK_FINISHED = 6,                    /**< the end of the media; code not used */
    eMEDIA_CALLBACK_POSITION_CHANGED = 7,            /**< after a seek or a speed change, never as a clock tick */
    eMEDIA_CALLBACK_SPEED_CHANGED = 8,               /**< the plug-in asks GetSpeed; code not used */
    eMEDIA_CALLBACK_ERROR = 9,                       /**< an error value of the A/V Control object, 0 to 6 (OIPF DAE) */
    eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED = 10, /**< component type: video 0, audio 1, subtitle 2 */
    eMEDIA_CALLBACK_PARENTAL_RATING_CHANGED = 11,    /**< non-zero when the content is blocked */
    eMEDIA_CALLBACK_DRM_RIGHTS_ERROR = 12,           /**< DRM error state (OIPF DAE, onDRMRightsError) */
    eMEDIA_CALLBACK_MAX = 13
} eMEDIA_CALLBACK_EVENT;

/**
 * Receives a player's reports.
 * @param playerId the player's handle
 * @param event    what happened
 * @param code     see eMEDIA_CALLBACK_EVENT
 * @param data     null, or a block from malloc() that becomes the callee's, who frees it with free()
 * @param userData as given to Hbbtv_AL_MediaPlayerAddCallback
 * Thread: a thread of the player, not the plug-in thread, and holding no lock that an adaptation-layer function
 * takes. The callee returns without waiting for the plug-in thread.
 */
typedef void (*Hbbtv_AL_MediaPlayerCallback)(unsigned int playerId, eMEDIA_CALLBACK_EVENT event, int code, void* data,
                                             void* userData);

/** A subtitle track that a page names for its media. Every field is zero-terminated, unused bytes are zero. */
typedef struct sub_properties_t {
    char lang[4];   /**< language, ISO 639, at most 3 letters; empty when not given */
    char laber[16]; /**< label for people, at most 15 bytes; empty when not given */
    char url[1024]; /**< address of the subtitle file as the page wrote it, at most 1023 bytes */
} sub_properties_t;

/** Type of a component, in the numbering of the A/V Control object's COMPONENT_TYPE_ constants (OIPF DAE). */
typedef enum AVComponentType {
    AV_COMPONENT_TYPE_INVALID = -1,
    AV_COMPONENT_TYPE_VIDEO = 0,
    AV_COMPONENT_TYPE_AUDIO = 1,
    AV_COMPONENT_TYPE_SUBTITLE = 2
} AVComponentType;

/** What components of all types have in common. */
typedef struct AVComponent {
    AVComponentType type;
    char* encoding;   /**< name of the encoding, for example "H264"; never null in records of the framework */
    int encrypted;    /**< 1 encrypted, 0 clear */
    int componentTag; /**< component tag of the stream, -1 when it has none */
    int pid;          /**< packet identifier or track number: tells the components of one media apart */
} AVComponent;

typedef struct AVVideoComponent {
    AVComponent* avComponent;
    double aspectRatio; /**< width divided by height as shown, for example 1.78; 0 when not known */
} AVVideoComponent;

typedef struct AVAudioComponent {
    AVComponent* avComponent;
    char* language;       /**< ISO 639-2 code, "und" when not known */
    int audioDescription; /**< 1 for an audio description for the visually impaired */
    int audioChannels;    /**< number of channels, 6 for 5.1; 0 when not known */
} AVAudioComponent;

typedef struct AVSubtitleComponent {
    AVComponent* avComponent;
    char* language;      /**< ISO 639-2 code, "und" when not known */
    int hearingImpaired; /**< 1 for subtitles for the hard of hearing */
} AVSubtitleComponent;

/**
 * Makes a player without a source.
 * @param player receives the handle, 0 or more; left as it is when no player can be made. The plug-in then works on
 *               without one: its commands carry -1, and scripts see refused commands.
 */
int Hbbtv_AL_MediaPlayerOpen(int* player);

/** Ends a player and frees all it holds. The plug-in has stopped it and removed its callback before. */
int Hbbtv_AL_MediaPlayerClose(int player);

/** Asks the player to send the television's own user agent with its requests. Called once, right after Open. */
int Hbbtv_AL_MediaPlayerSetUserAgent(int player);

/**
 * Sets the function that receives the player's reports from now on. A player has one.
 * @param userData handed to every call; the plug-in passes its instance
 */
int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback, void* userData);

/** Ends the reports. A call that is running on the player's thread may still return after this function has. */
int Hbbtv_AL_MediaPlayerRemoveCallback(int player);

/** Registers for decoder-resource messages of the platform. @return 1 on success */
int Hbbtv_AL_MediaPlayerAddResourceCallback(void);

/** @return the position, or -1 when the player has none. May be asked several times a second. */
int64_t Hbbtv_AL_MediaPlayerGetPosition(int player);

/** @return the duration, 0 when the media has no end that is known, -1 when there is no media or no player. */
int Hbbtv_AL_MediaPlayerGetDuration(int player);

/**
 * Adds an external subtitle track for the player's media.
 * @param properties the track, the caller's; an empty `url` asks for nothing
 * The plug-in does not look at the result: a track that cannot be had must not stop the media.
 */
int Hbbtv_AL_MediaPlayerAddSubtitle(int player, sub_properties_t* properties);

/**
 * Names the media to play next. Ends nothing that runs: the plug-in stops the player before.
 * @param url absolute address whose text contains "http", at most 1023 bytes
 */
int Hbbtv_AL_MediaPlayerSetSource(int player, const char* url);

/**
 * Places the picture.
 * @param x,y          left and top edge in pixels of the 1280x720 screen; may be negative
 * @param width,height size in pixels; the picture keeps its shape inside it
 * @return 1 on success; else the plug-in writes a log line and goes on
 */
int Hbbtv_AL_MediaPlayerSetWindow(int player, int x, int y, int width, int height);

/**
 * Starts the source from its beginning, or, while it runs, goes on with it. PLAYING or ERROR is reported later.
 * @param mode always 0
 * @return 0 when the start is refused; the object then goes to its error state
 */
int Hbbtv_AL_MediaPlayerPlay(int player, int mode);

/** Holds the picture. @return 0 when refused; the object then goes to its error state */
int Hbbtv_AL_MediaPlayerPause(int player);

/** Goes on after Pause; PLAYING is reported when it does. @return 0 when refused, as Pause */
int Hbbtv_AL_MediaPlayerResume(int player);

/** Ends playback; the source stays. A player that is stopped already agrees. @return 0 when refused */
int Hbbtv_AL_MediaPlayerStop(int player);

/**
 * Moves the position; POSITION_CHANGED is reported when it is done, and PLAYING when playback goes on.
 * @param ms position; the plug-in passes it on even when negative
 * @return 0 when refused
 */
int Hbbtv_AL_MediaPlayerSeek(int player, int ms);

/**
 * Asks for a speed; SPEED_CHANGED is reported with the speed that is really in force when it differs.
 * @param speed 1 is normal, 0 a pause, negative backwards; always a whole number
 */
int Hbbtv_AL_MediaPlayerSetSpeed(int player, double speed);

/** @return the speed in force, 0 while paused or stopped. */
int Hbbtv_AL_MediaPlayerGetSpeed(int player);

/**
 * Selects or unselects one component; SELECTED_COMPONENT_CHANGED is reported when it has happened.
 * @param component a record of the framework's collections, valid for the length of the call
 */
int Hbbtv_AL_MediaPlayerSelectAVVideoComponent(int player, AVVideoComponent* component);
int Hbbtv_AL_MediaPlayerSelectAVAudioComponent(int player, AVAudioComponent* component);
int Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(int player, AVSubtitleComponent* component);
int Hbbtv_AL_MediaPlayerUnselectAVVideoComponent(int player, AVVideoComponent* component);
int Hbbtv_AL_MediaPlayerUnselectAVAudioComponent(int player, AVAudioComponent* component);
int Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent(int player, AVSubtitleComponent* component);

/** Selects the component that the television prefers. @param type 0 video, 1 audio, 2 subtitle; others are refused */
int Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(int player, int type);

/** Unselects whatever component of the type is active. @param type as SelectDefaultAVComponent */
int Hbbtv_AL_MediaPlayerUnselectAVComponentByType(int player, int type);

#ifdef __cplusplus
}

static_assert(sizeof(sub_properties_t) == 1044, "sub_properties_t crosses the player's boundary");
static_assert(offsetof(sub_properties_t, laber) == 4, "sub_properties_t crosses the player's boundary");
static_assert(offsetof(sub_properties_t, url) == 20, "sub_properties_t crosses the player's boundary");
static_assert(sizeof(AVComponent) == (sizeof(void*) == 8 ? 32 : 20), "AVComponent crosses the player's boundary");
static_assert(offsetof(AVComponent, encoding) == sizeof(void*), "AVComponent crosses the player's boundary");
static_assert(offsetof(AVComponent, pid) == 2 * sizeof(void*) + 8, "AVComponent crosses the player's boundary");
static_assert(offsetof(AVVideoComponent, aspectRatio) == (sizeof(void*) == 8 ? 8 : alignof(AVVideoComponent)),
              "AVVideoComponent crosses the player's boundary");
static_assert(sizeof(AVAudioComponent) == 2 * sizeof(void*) + 8, "AVAudioComponent crosses the player's boundary");
static_assert(offsetof(AVAudioComponent, audioChannels) == 2 * sizeof(void*) + 4,
              "AVAudioComponent crosses the player's boundary");
static_assert(offsetof(AVSubtitleComponent, hearingImpaired) == 2 * sizeof(void*),
              "AVSubtitleComponent crosses the player's boundary");
#endif

#endif
