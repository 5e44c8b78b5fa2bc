/**
 * The media-player adaptation layer: the functions of a television's media player that the A/V Control plug-in uses.
 *
 * Whoever ports the plug-in implements these functions with C linkage. For all of them:
 * - `player` is a handle that Hbbtv_AL_MediaPlayerOpen wrote. A handle that is not open (such as -1) is refused.
 * - They are called on the browser's plug-in thread, for several players in turn. They must return without waiting for
 *   the network, the decoder or the callback. The callback reports later whatever takes time.
 * - Times are in milliseconds. Texts are zero-terminated UTF-8 and belong to the caller; copy what is needed later.
 * - Results are int. The transport commands (Play, Pause, Resume, Stop, Seek) fail only with 0. SetWindow and
 *   AddResourceCallback succeed only with 1. The plug-in ignores the other results; 1 and 0 are customary.
 */
#ifndef MEDIALIB_H
#define MEDIALIB_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The player's reports; the comment beside each name gives the meaning of `code`. */
typedef enum eMEDIA_CALLBACK_EVENT {
    eMEDIA_CALLBACK_STOPPED = 1,                     /**< code not used */
    eMEDIA_CALLBACK_PLAYING = 2,                     /**< code not used */
    eMEDIA_CALLBACK_PAUSED = 3,                      /**< code not used */
    eMEDIA_CALLBACK_CONNECTING = 4,                  /**< code not used */
    eMEDIA_CALLBACK_BUFFERING = 5,                   /**< code not used */
    eMEDIA_CALLBACK_FINISHED = 6,                    /**< the end of the media; code not used */
    eMEDIA_CALLBACK_POSITION_CHANGED = 7,            /**< after a seek or a speed change, never as a clock tick */
    eMEDIA_CALLBACK_SPEED_CHANGED = 8,               /**< the plug-in calls GetSpeed; code not used */
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
 * @param data     null, or a block from malloc(); the callee takes ownership and frees it with free()
 * @param userData as passed to Hbbtv_AL_MediaPlayerAddCallback
 * Thread: a thread of the player, not the plug-in thread. The caller holds no lock that an adaptation-layer function
 * takes. The callee returns without waiting for the plug-in thread.
 */
typedef void (*Hbbtv_AL_MediaPlayerCallback)(unsigned int playerId, eMEDIA_CALLBACK_EVENT event, int code, void* data,
                                             void* userData);

/** An external subtitle track, as a page describes it. Every field is zero-terminated; unused bytes are zero. */
typedef struct sub_properties_t {
    char lang[4];   /**< language, ISO 639, at most 3 letters; empty when missing */
    char laber[16]; /**< label for people, at most 15 bytes; empty when missing */
    char url[1024]; /**< address of the subtitle file as the page wrote it, at most 1023 bytes */
} sub_properties_t;

/** Type of a component, in the numbering of the A/V Control object's COMPONENT_TYPE_ constants (OIPF DAE). */
typedef enum AVComponentType {
    AV_COMPONENT_TYPE_INVALID = -1,
    AV_COMPONENT_TYPE_VIDEO = 0,
    AV_COMPONENT_TYPE_AUDIO = 1,
    AV_COMPONENT_TYPE_SUBTITLE = 2
} AVComponentType;

/** The fields that components of all types share. */
typedef struct AVComponent {
    AVComponentType type;
    char* encoding;   /**< name of the encoding, for example "H264"; never null in records of the framework */
    int encrypted;    /**< 1 encrypted, 0 clear */
    int componentTag; /**< component tag of the stream, -1 when it has none */
    int pid;          /**< packet identifier or track number; unique among the components of one media item */
} AVComponent;

typedef struct AVVideoComponent {
    AVComponent* avComponent;
    double aspectRatio; /**< width divided by height as shown, for example 1.78; 0 when unknown */
} AVVideoComponent;

typedef struct AVAudioComponent {
    AVComponent* avComponent;
    char* language;       /**< ISO 639-2 code, "und" when unknown */
    int audioDescription; /**< 1 for an audio description for the visually impaired */
    int audioChannels;    /**< number of channels, 6 for 5.1; 0 when unknown */
} AVAudioComponent;

typedef struct AVSubtitleComponent {
    AVComponent* avComponent;
    char* language;      /**< ISO 639-2 code, "und" when unknown */
    int hearingImpaired; /**< 1 for subtitles for the hard of hearing */
} AVSubtitleComponent;

/**
 * Creates a player without a source.
 * @param player receives the handle, 0 or more; unchanged when no player can be created. The plug-in then continues
 *               without one: its commands carry -1, and scripts see refused commands.
 */
int Hbbtv_AL_MediaPlayerOpen(int* player);

/** Destroys a player and frees its resources. The plug-in has stopped it and removed its callback before. */
int Hbbtv_AL_MediaPlayerClose(int player);

/** Makes the player send the television's user agent with its requests. Called once, right after Open. */
int Hbbtv_AL_MediaPlayerSetUserAgent(int player);

/**
 * Sets the function that receives the player's reports from now on. A player has one such function.
 * @param userData passed to every call; the plug-in passes its instance
 */
int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback, void* userData);

/** Ends the reports. A call in progress on the player's thread may return after this function. */
int Hbbtv_AL_MediaPlayerRemoveCallback(int player);

/** Registers for decoder-resource messages of the platform. @return 1 on success */
int Hbbtv_AL_MediaPlayerAddResourceCallback(void);

/** @return the position, or -1 when the player has none. May be called several times a second. */
int64_t Hbbtv_AL_MediaPlayerGetPosition(int player);

/** @return the duration; 0 when the end of the media is unknown; -1 when there is no media or no player */
int Hbbtv_AL_MediaPlayerGetDuration(int player);

/**
 * Adds an external subtitle track for the player's media.
 * @param properties the track; belongs to the caller. An empty `url` has no effect
 * The plug-in ignores the result: a track that is not available must not stop the media.
 */
int Hbbtv_AL_MediaPlayerAddSubtitle(int player, sub_properties_t* properties);

/**
 * Sets the media to play next. Does not end playback: the plug-in stops the player before.
 * @param url absolute address whose text contains "http", at most 1023 bytes
 */
int Hbbtv_AL_MediaPlayerSetSource(int player, const char* url);

/**
 * Sets the rectangle in which the video is shown.
 * @param x,y          left and top edge in pixels of the 1280x720 screen; may be negative
 * @param width,height size in pixels; the video keeps its aspect ratio inside the rectangle
 * @return 1 on success; otherwise the plug-in writes a log line and continues
 */
int Hbbtv_AL_MediaPlayerSetWindow(int player, int x, int y, int width, int height);

/**
 * Starts the source from its beginning, or resumes playback in progress. PLAYING or ERROR is reported later.
 * @param mode always 0
 * @return 0 when the start is refused; the object then enters its error state
 */
int Hbbtv_AL_MediaPlayerPlay(int player, int mode);

/**
 * Pauses playback. For play(0), the plug-in also calls it while the player is stopped.
 * @return 0 when refused; the object then enters its error state
 */
int Hbbtv_AL_MediaPlayerPause(int player);

/** Resumes after Pause; PLAYING is reported then. @return 0 when refused; the object then enters its error state */
int Hbbtv_AL_MediaPlayerResume(int player);

/** Ends playback and keeps the source. Succeeds when the player is already stopped. @return 0 when refused */
int Hbbtv_AL_MediaPlayerStop(int player);

/**
 * Moves the position. POSITION_CHANGED is reported when this is done, and PLAYING when playback resumes.
 * @param ms position; may be negative, because the plug-in passes it on unchanged
 * @return 0 when refused
 */
int Hbbtv_AL_MediaPlayerSeek(int player, int ms);

/**
 * Requests a speed. SPEED_CHANGED is reported when the speed in force differs from the request.
 * @param speed 1 is normal, 0 a pause, negative backwards; always a whole number
 */
int Hbbtv_AL_MediaPlayerSetSpeed(int player, double speed);

/** @return the current speed; 0 while paused or stopped */
int Hbbtv_AL_MediaPlayerGetSpeed(int player);

/**
 * Selects or unselects one component. SELECTED_COMPONENT_CHANGED is reported when this has happened.
 * @param component a record of the framework's collections, valid during the call
 */
int Hbbtv_AL_MediaPlayerSelectAVVideoComponent(int player, AVVideoComponent* component);
int Hbbtv_AL_MediaPlayerSelectAVAudioComponent(int player, AVAudioComponent* component);
int Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(int player, AVSubtitleComponent* component);
int Hbbtv_AL_MediaPlayerUnselectAVVideoComponent(int player, AVVideoComponent* component);
int Hbbtv_AL_MediaPlayerUnselectAVAudioComponent(int player, AVAudioComponent* component);
int Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent(int player, AVSubtitleComponent* component);

/** Selects the component that the television prefers. @param type 0 video, 1 audio, 2 subtitle; others are refused */
int Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(int player, int type);

/** Unselects the active component of the type. @param type as for SelectDefaultAVComponent */
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
