/**
 * Observation of what passes between a page and its plug-in objects, for a browser's trace.
 *
 * The NPAPI module produces it. Nothing is formatted and nothing is allocated while no observer is set.
 */
#ifndef HBBTVPLUGINTRACE_H
#define HBBTVPLUGINTRACE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum HbbTVPluginTraceKind {
    HBBTV_TRACE_CREATED,   /**< a page's object has its plug-in instance */
    HBBTV_TRACE_DESTROYED, /**< the instance has gone */
    HBBTV_TRACE_PARAM,     /**< an attribute or param element was handed over: "data", value "film.mp4" */
    HBBTV_TRACE_CALL,      /**< script called a method: "play(1)", value true */
    HBBTV_TRACE_READ,      /**< script read a property: "playPosition", value 5040 */
    HBBTV_TRACE_WRITE,     /**< script wrote a property: "data", value "film.mp4" */
    HBBTV_TRACE_STATE,     /**< the `playState` property has another value, known before the page is told: "1" */
    HBBTV_TRACE_EVENT,     /**< a function of the page was called: "onPlayStateChange(1)" */
    HBBTV_TRACE_ERROR      /**< a function of the page failed */
} HbbTVPluginTraceKind;

typedef struct HbbTVPluginTraceEntry {
    HbbTVPluginTraceKind kind;
    int instance;      /**< number of the object in this process, from 1 */
    int64_t timeUs;    /**< CLOCK_MONOTONIC, microseconds; for calls and events the moment they began */
    int64_t tookUs;    /**< calls and events: how long they ran; else 0 */
    const char* text;  /**< one line of UTF-8, cut at some 500 bytes; valid during the call */
    const char* value; /**< result or value, as script would write it; same form; empty for the other kinds */
} HbbTVPluginTraceEntry;

/** Called on the browser's plug-in thread. Must not call into the page or the plug-in. */
typedef void (*HbbTVPluginTraceCallback)(const HbbTVPluginTraceEntry* entry, void* userData);

/** Sets the observer; null ends it. Thread: the browser's plug-in thread. */
void hbbtvPluginTraceSetCallback(HbbTVPluginTraceCallback callback, void* userData);

#ifdef __cplusplus
}
#endif

#endif
