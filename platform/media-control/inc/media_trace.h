/**
 * Observation of the desktop media player: the commands it gets, the reports it makes, the requests it sends and how
 * far its buffer is filled.
 *
 * An entry is plain data: numbers, enumerators and texts. The observer decides what people read of it. While no
 * observer is set, the player formats and allocates nothing for the trace.
 *
 * Texts are UTF-8, end with a null character and are valid during the call of the observer. None is a null pointer
 * unless its comment says so.
 */
#ifndef MEDIA_TRACE_H
#define MEDIA_TRACE_H

#include "medialib.h"

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Which member of the union in MediaTraceEntry is set. */
typedef enum MediaTraceKind {
    MEDIA_TRACE_COMMAND,   /**< a call of the adaptation layer that changes the player; queries are not traced */
    MEDIA_TRACE_REPORT,    /**< a call of the player's callback */
    MEDIA_TRACE_REQUEST,   /**< the response to an HTTP request for a file, a playlist or a part of one begins */
    MEDIA_TRACE_BUFFERING, /**< the buffer's fill level has changed */
    MEDIA_TRACE_NOTE       /**< something a person should know, for example why the media cannot be played */
} MediaTraceKind;

/** The functions of medialib.h that are traced, each named after its part behind `Hbbtv_AL_MediaPlayer`. */
typedef enum MediaTraceFunction {
    MEDIA_FUNCTION_OPEN,
    MEDIA_FUNCTION_CLOSE,
    MEDIA_FUNCTION_SET_USER_AGENT,
    MEDIA_FUNCTION_ADD_CALLBACK,
    MEDIA_FUNCTION_REMOVE_CALLBACK,
    MEDIA_FUNCTION_ADD_SUBTITLE, /**< url */
    MEDIA_FUNCTION_SET_SOURCE,   /**< url */
    MEDIA_FUNCTION_SET_WINDOW,   /**< numbers: x, y, width, height in pixels of the screen */
    MEDIA_FUNCTION_PLAY,
    MEDIA_FUNCTION_PAUSE,
    MEDIA_FUNCTION_RESUME,
    MEDIA_FUNCTION_STOP,
    MEDIA_FUNCTION_SEEK,                      /**< numbers: milliseconds */
    MEDIA_FUNCTION_SET_SPEED,                 /**< numbers: speed, 1 is normal */
    MEDIA_FUNCTION_SELECT_AV_VIDEO_COMPONENT, /**< numbers: pid; none when the component has no record. So are those
                                                   of the five functions that follow */
    MEDIA_FUNCTION_SELECT_AV_AUDIO_COMPONENT,
    MEDIA_FUNCTION_SELECT_AV_SUBTITLE_COMPONENT,
    MEDIA_FUNCTION_UNSELECT_AV_VIDEO_COMPONENT,
    MEDIA_FUNCTION_UNSELECT_AV_AUDIO_COMPONENT,
    MEDIA_FUNCTION_UNSELECT_AV_SUBTITLE_COMPONENT,
    MEDIA_FUNCTION_SELECT_DEFAULT_AV_COMPONENT,   /**< numbers: AVComponentType */
    MEDIA_FUNCTION_UNSELECT_AV_COMPONENT_BY_TYPE, /**< numbers: AVComponentType */
    MEDIA_FUNCTION_COUNT                          /**< how many there are */
} MediaTraceFunction;

/** MEDIA_TRACE_COMMAND, traced when the function returns and before the reports that it causes. */
typedef struct MediaTraceCommand {
    MediaTraceFunction function;
    const char* url; /**< null for functions without one */
    int numbers[4];  /**< the function's arguments that are numbers */
    int numberCount; /**< how many of them are set */
    int result;      /**< what the function returned: 1 done, 0 refused */
} MediaTraceCommand;

/** MEDIA_TRACE_REPORT, traced just before the callback is called, and also while none is set. */
typedef struct MediaTraceReport {
    eMEDIA_CALLBACK_EVENT event;
    int code;          /**< as the callback gets it */
    const char* cause; /**< for people, for example "HTTP 404"; empty when unknown */
} MediaTraceReport;

/** MEDIA_TRACE_REQUEST. */
typedef struct MediaTraceRequest {
    const char* url;
    const char* redirect; /**< address to which the server redirected the request; null without redirection */
    const char* range;    /**< the request's Range header; null when it had none */
    int status;           /**< HTTP status code */
    int64_t bytes;        /**< length of the response's content; -1 when the server did not state it */
} MediaTraceRequest;

/** MEDIA_TRACE_BUFFERING. */
typedef struct MediaTraceBuffering {
    int percent; /**< 0 to 100; below 100 playback waits */
} MediaTraceBuffering;

/** MEDIA_TRACE_NOTE. */
typedef struct MediaTraceNote {
    const char* text;
} MediaTraceNote;

typedef struct MediaTraceEntry {
    MediaTraceKind kind;
    int player;     /**< handle of the adaptation layer */
    int64_t timeUs; /**< CLOCK_MONOTONIC, microseconds */
    union {
        MediaTraceCommand command;
        MediaTraceReport report;
        MediaTraceRequest request;
        MediaTraceBuffering buffering;
        MediaTraceNote note;
    };
} MediaTraceEntry;

/**
 * The observer. It may be called on any thread, one call at a time, and must not call the adaptation layer.
 * @param entry valid during the call
 */
typedef void (*MediaTraceCallback)(const MediaTraceEntry* entry, void* userData);

/**
 * Sets the observer; null removes it. When this function returns, no call of the former observer runs or will come.
 * Thread: any, but not the observer.
 */
void mediaTraceSetCallback(MediaTraceCallback callback, void* userData);

#ifdef __cplusplus
}
#endif

#endif
