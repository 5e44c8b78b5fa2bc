/**
 * Netscape Plug-in API (NPAPI), version 0.27: types shared by engine and plug-in, and the functions that a
 * browser offers to plug-ins (`NPN_*`).
 *
 * Names, values and memory layouts are those of the published API, for POSIX systems. A television's browser
 * provides the `NPN_*` functions with C linkage; on the desktop the plug-in framework provides them on top of
 * the function table that the engine passes to `NP_Initialize`.
 *
 * Threads: unless a function says otherwise it may be called on the browser's plug-in thread only.
 */
#ifndef NPAPI_H
#define NPAPI_H

#include "nptypes.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

#define NP_VERSION_MAJOR 0
#define NP_VERSION_MINOR 27

/** Result of an NPAPI operation: one of the NPERR_ values. */
typedef int16_t NPError;
/** Truth value of the C side of the API: 0 or 1. */
typedef unsigned char NPBool;
/** Reason given when a stream ends; the plug-in framework refuses all streams. */
typedef int16_t NPReason;
/** A MIME type as zero-terminated text. */
typedef char* NPMIMEType;

#define NPERR_NO_ERROR 0
#define NPERR_GENERIC_ERROR 1
#define NPERR_INVALID_INSTANCE_ERROR 2
#define NPERR_INVALID_FUNCTABLE_ERROR 3
#define NPERR_MODULE_LOAD_FAILED_ERROR 4
#define NPERR_OUT_OF_MEMORY_ERROR 5
#define NPERR_INVALID_PLUGIN_ERROR 6
#define NPERR_INVALID_PLUGIN_DIR_ERROR 7
#define NPERR_INCOMPATIBLE_VERSION_ERROR 8
#define NPERR_INVALID_PARAM 9
#define NPERR_INVALID_URL 10
#define NPERR_FILE_NOT_FOUND 11
#define NPERR_NO_DATA 12
#define NPERR_STREAM_NOT_SEEKABLE 13

/** Display mode of an instance: inside a page, or as the whole page. */
#define NP_EMBED 1
#define NP_FULL 2

/** One plug-in instance. The engine owns the record; `pdata` belongs to the plug-in, `ndata` to the engine. */
typedef struct _NPP {
    void* pdata;
    void* ndata;
} NPP_t;
typedef NPP_t* NPP;

/** A stream from the engine to a plug-in. Opaque here: no stream is ever accepted. */
typedef struct _NPStream NPStream;
/** A request to print. Opaque here: nothing is printed. */
typedef struct _NPPrint NPPrint;

/** A rectangle in pixels, right and bottom edges excluded. */
typedef struct _NPRect {
    uint16_t top;
    uint16_t left;
    uint16_t bottom;
    uint16_t right;
} NPRect;

/** Data that an instance saves for its successor. Not used. */
typedef struct _NPSavedData {
    int32_t len;
    void* buf;
} NPSavedData;

typedef enum { NPWindowTypeWindow = 1, NPWindowTypeDrawable } NPWindowType;

/** The rectangle that the engine assigns to an instance, in pixels. */
typedef struct _NPWindow {
    void* window;      /**< native window or drawable; null for a windowless instance */
    int32_t x;         /**< left edge, relative to the page or the screen as the engine chooses */
    int32_t y;         /**< top edge */
    uint32_t width;    /**< width, at most the page's */
    uint32_t height;   /**< height */
    NPRect clipRect;   /**< visible part */
    void* ws_info;     /**< window-system data (POSIX) */
    NPWindowType type; /**< drawn into a window or into a drawable */
} NPWindow;

/** Bit that marks variables whose value has the C++ binary interface of the GNU compilers. */
#define NP_ABI_GCC3_MASK 0x10000000

/** Variables of a plug-in that an engine reads or sets. */
typedef enum {
    NPPVpluginNameString = 1,
    NPPVpluginDescriptionString = 2,
    NPPVpluginWindowBool = 3,
    NPPVpluginTransparentBool = 4,
    NPPVjavaClass = 5,
    NPPVpluginWindowSize = 6,
    NPPVpluginTimerInterval = 7,
    NPPVpluginScriptableInstance = (10 | NP_ABI_GCC3_MASK),
    NPPVpluginScriptableIID = 11,
    NPPVjavascriptPushCallerBool = 12,
    NPPVpluginKeepLibraryInMemory = 13,
    NPPVpluginNeedsXEmbed = 14,
    NPPVpluginScriptableNPObject = 15,
    NPPVformValue = 16
} NPPVariable;

/** Variables of the engine that a plug-in reads. */
typedef enum {
    NPNVxDisplay = 1,
    NPNVxtAppContext = 2,
    NPNVnetscapeWindow = 3,
    NPNVjavascriptEnabledBool = 4,
    NPNVasdEnabledBool = 5,
    NPNVisOfflineBool = 6,
    NPNVToolkit = (13 | NP_ABI_GCC3_MASK),
    NPNVSupportsXEmbedBool = 14,
    NPNVWindowNPObject = 15,        /**< `NPObject*`: the page's window, retained for the caller */
    NPNVPluginElementNPObject = 16, /**< `NPObject*`: the instance's element, retained for the caller */
    NPNVSupportsWindowless = 17,
    NPNVprivateModeBool = 18
} NPNVariable;

/**
 * Reads a value from the engine.
 * @param instance the instance that needs the value; may be null for values of the engine itself
 * @param variable the variable to read
 * @param value    receives the value; its type depends on the variable
 * @return NPERR_NO_ERROR; otherwise `value` is undefined. Callers here treat a null object as a failure too.
 */
NPError NPN_GetValue(NPP instance, NPNVariable variable, void* value);

/** Sets a plug-in's variable in the engine. @return NPERR_NO_ERROR or the reason for the refusal */
NPError NPN_SetValue(NPP instance, NPPVariable variable, void* value);

/**
 * Allocates memory that may cross between engine and plug-in.
 * @param size bytes; 0 is allowed and may yield null
 * @return memory for NPN_MemFree, or null when there is none: callers then refuse the operation
 * Thread: any.
 */
void* NPN_MemAlloc(uint32_t size);

/** Frees memory of NPN_MemAlloc. @param ptr the memory, or null. Thread: any. */
void NPN_MemFree(void* ptr);

/**
 * Runs a function on the browser's plug-in thread, after everything in progress there has returned. Calls run in the
 * order in which they were made, each exactly once.
 * @param plugin   the instance for which the call is made
 * @param func     the function to run
 * @param userData its argument; owned by `func`
 * Thread: any. Returns at once.
 */
void NPN_PluginThreadAsyncCall(NPP plugin, void (*func)(void*), void* userData);

#ifdef __cplusplus
}

static_assert(sizeof(NPP_t) == 2 * sizeof(void*), "NPP_t crosses the engine's boundary");
static_assert(sizeof(NPRect) == 8, "NPRect crosses the engine's boundary");
static_assert(sizeof(NPWindow) == (sizeof(void*) == 8 ? 48 : 36), "NPWindow crosses the engine's boundary");
static_assert(offsetof(NPWindow, x) == sizeof(void*), "NPWindow crosses the engine's boundary");
static_assert(offsetof(NPWindow, width) == sizeof(void*) + 8, "NPWindow crosses the engine's boundary");
static_assert(offsetof(NPWindow, clipRect) == sizeof(void*) + 16, "NPWindow crosses the engine's boundary");
static_assert(offsetof(NPWindow, type) == 2 * sizeof(void*) + 24, "NPWindow crosses the engine's boundary");
#endif

#endif
