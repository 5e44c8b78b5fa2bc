/**
 * Observation of the desktop media player: every command that it was given and every report that it made.
 */
#ifndef MEDIA_TRACE_H
#define MEDIA_TRACE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum MediaTraceKind {
    MEDIA_TRACE_COMMAND, /**< a call of the adaptation layer that changes the player; queries are not traced */
    MEDIA_TRACE_REPORT,  /**< a call of the player's callback */
    MEDIA_TRACE_NOTE     /**< something a person should know, for example the cause of an error */
} MediaTraceKind;

typedef struct MediaTraceEntry {
    MediaTraceKind kind;
    int player;       /**< handle of the adaptation layer */
    int64_t timeUs;   /**< CLOCK_MONOTONIC, microseconds */
    const char* text; /**< for example "SetSource http://...", "PLAYING", "ERROR 5 (HTTP 404)"; valid during the call */
    int result;       /**< of a command; 0 for the others */
} MediaTraceEntry;

/** Any thread, one call at a time; must not call the adaptation layer. */
typedef void (*MediaTraceCallback)(const MediaTraceEntry* entry, void* userData);

/** Sets the observer; null ends it. When this function returns, no call to the former observer runs or will come. */
void mediaTraceSetCallback(MediaTraceCallback callback, void* userData);

#ifdef __cplusplus
}
#endif

#endif
