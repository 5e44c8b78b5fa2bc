/**
 * Observation of the desktop media player: every command that it was given, every report that it made,
 * and what it waits for.
 */
#ifndef MEDIA_TRACE_H
#define MEDIA_TRACE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum MediaTraceKind {
    MEDIA_TRACE_COMMAND,  /**< a call of the adaptation layer that changes the player; queries are not traced */
    MEDIA_TRACE_REPORT,   /**< a call of the player's callback */
    MEDIA_TRACE_NOTE,     /**< something a person should know, for example the cause of an error */
    MEDIA_TRACE_REQUEST,  /**< a web server's answer to a request for a file, a playlist or a part of one begins */
    MEDIA_TRACE_BUFFERING /**< how full the player's buffer is; below 100 playback waits for it */
} MediaTraceKind;

/**
 * `text` is valid during the call. Examples: "SetSource http://...", "PLAYING", "ERROR 5 (HTTP 404)", and for a request
 * "GET http://...", then " -> http://..." when the server sent it on, then the Range header when it had one.
 */
typedef struct MediaTraceEntry {
    MediaTraceKind kind;
    int player;     /**< handle of the adaptation layer */
    int64_t timeUs; /**< CLOCK_MONOTONIC, microseconds */
    const char* text;
    int result;    /**< of a command; HTTP status of a request; percent of the buffer; 0 for the others */
    int64_t bytes; /**< of a request: length of the answer's content, -1 when not said; -1 for the others */
} MediaTraceEntry;

/** Any thread, one call at a time; must not call the adaptation layer. */
typedef void (*MediaTraceCallback)(const MediaTraceEntry* entry, void* userData);

/** Sets the observer; null ends it. When this function returns, no call to the former observer runs or will come. */
void mediaTraceSetCallback(MediaTraceCallback callback, void* userData);

#ifdef __cplusplus
}
#endif

#endif
