/**
 * Observation of what passes between a page and its plug-in objects, for a browser's trace.
 *
 * The NPAPI module produces it. An entry is plain data: numbers, enumerators and texts. The observer decides what
 * people read of it. While no observer is set, nothing is formatted and nothing allocated.
 *
 * Names are UTF-8 and end with a null character. All pointers are valid during the call of the observer.
 */
#ifndef HBBTVPLUGINTRACE_H
#define HBBTVPLUGINTRACE_H

#include <stdbool.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Which member of the union in HbbTVPluginTraceEntry is set. */
typedef enum HbbTVPluginTraceKind {
    HBBTV_TRACE_CREATED,   /**< created: a page's object has its plug-in instance */
    HBBTV_TRACE_DESTROYED, /**< no member: the instance is gone */
    HBBTV_TRACE_PARAM,     /**< property: an attribute or param element was handed over */
    HBBTV_TRACE_CALL,      /**< call: script called a method */
    HBBTV_TRACE_READ,      /**< property: script read it */
    HBBTV_TRACE_WRITE,     /**< property: script wrote it */
    HBBTV_TRACE_STATE,     /**< state: the `playState` property has another value; the page may not know it yet */
    HBBTV_TRACE_EVENT,     /**< event: a function of the page was called */
    HBBTV_TRACE_ERROR      /**< event: a function of the page failed; follows its HBBTV_TRACE_EVENT */
} HbbTVPluginTraceKind;

/** Which member of the union in HbbTVPluginTraceValue is set. */
typedef enum HbbTVPluginTraceType {
    HBBTV_VALUE_NONE, /**< the plug-in has no such property, or refused to answer */
    HBBTV_VALUE_UNDEFINED,
    HBBTV_VALUE_NULL,
    HBBTV_VALUE_BOOLEAN, /**< boolean */
    HBBTV_VALUE_NUMBER,  /**< number */
    HBBTV_VALUE_STRING,  /**< string */
    HBBTV_VALUE_OBJECT   /**< an object or a function; what it contains is not traced */
} HbbTVPluginTraceType;

/** UTF-8 of any length, which may contain null characters and does not end with one. */
typedef struct HbbTVPluginTraceString {
    const char* bytes;
    uint32_t length;
} HbbTVPluginTraceString;

/** A value of script. */
typedef struct HbbTVPluginTraceValue {
    HbbTVPluginTraceType type;
    union {
        bool boolean;
        double number;
        HbbTVPluginTraceString string;
    };
} HbbTVPluginTraceValue;

/** HBBTV_TRACE_CREATED. */
typedef struct HbbTVPluginTraceCreated {
    const char* type; /**< MIME type; empty when the element has none */
} HbbTVPluginTraceCreated;

/** HBBTV_TRACE_PARAM, HBBTV_TRACE_READ, HBBTV_TRACE_WRITE. */
typedef struct HbbTVPluginTraceProperty {
    const char* name;
    HbbTVPluginTraceValue value;
} HbbTVPluginTraceProperty;

/** HBBTV_TRACE_CALL, traced when the method returns. */
typedef struct HbbTVPluginTraceCall {
    const char* name;
    const HbbTVPluginTraceValue* arguments;
    uint32_t argumentCount;
    HbbTVPluginTraceValue result;
    int64_t tookUs; /**< how long it ran, microseconds */
} HbbTVPluginTraceCall;

/** HBBTV_TRACE_EVENT and HBBTV_TRACE_ERROR, traced when the function returns. */
typedef struct HbbTVPluginTraceEvent {
    const char* name;     /**< of the handler, or the listener's type; "function" when unknown */
    const char* property; /**< null when the function got the arguments as they are; else it got an event object, this
                               is the property that says what happened, and the one argument below is its value */
    const HbbTVPluginTraceValue* arguments;
    uint32_t argumentCount;
    int64_t tookUs; /**< how long it ran, microseconds */
} HbbTVPluginTraceEvent;

/** HBBTV_TRACE_STATE. */
typedef struct HbbTVPluginTraceState {
    int state;
} HbbTVPluginTraceState;

typedef struct HbbTVPluginTraceEntry {
    HbbTVPluginTraceKind kind;
    int instance;   /**< number of the object in this process, from 1 */
    int64_t timeUs; /**< CLOCK_MONOTONIC, microseconds; for calls and events the moment they began; no two are equal
                         but those of an event and its error, so that entries can be sorted by the time they began */
    union {
        HbbTVPluginTraceCreated created;
        HbbTVPluginTraceProperty property;
        HbbTVPluginTraceCall call;
        HbbTVPluginTraceEvent event;
        HbbTVPluginTraceState state;
    };
} HbbTVPluginTraceEntry;

/** The observer. It is called on the browser's plug-in thread and must not call into the page or the plug-in. */
typedef void (*HbbTVPluginTraceCallback)(const HbbTVPluginTraceEntry* entry, void* userData);

/** Sets the observer; null removes it. Thread: the browser's plug-in thread. */
void hbbtvPluginTraceSetCallback(HbbTVPluginTraceCallback callback, void* userData);

#ifdef __cplusplus
}
#endif

#endif
