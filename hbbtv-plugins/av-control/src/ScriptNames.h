/** The names of the script interface and their identifiers. One set for all instances; plug-in thread only. */
#ifndef AVCONTROL_SCRIPTNAMES_H
#define AVCONTROL_SCRIPTNAMES_H

#include "HbbTVObjectsTypes.h"

#include "npapi/npruntime.h"

constexpr int PROPERTY_COUNT = 29;
constexpr int FUNCTION_COUNT = 21;
constexpr int PARAM_COUNT = 10;
constexpr int LISTENER_COUNT = 10;
constexpr int DOM_EVENT_COUNT = 4;

/** Positions of the element parameters in psParamNames. */
enum ParamNames_e {
    PARAM_ID = 0,
    PARAM_TYPE = 1,
    PARAM_DATA = 2,
    PARAM_WIDTH = 3,
    PARAM_HEIGHT = 4,
    PARAM_STYLE = 5,
    PARAM_CACHE = 6,
    PARAM_LOOP = 7,
    PARAM_SUBTITLES = 8,
    PARAM_CAPTIONS = 9
};

extern const char* const psProperties[PROPERTY_COUNT]; /**< indexed by PropertyNames_e */
extern AccessRight parProperties[PROPERTY_COUNT];      /**< width and height change with the full-screen mode */
extern NPIdentifier piProperties[PROPERTY_COUNT];

extern const char* const pcFunctions[FUNCTION_COUNT]; /**< indexed by FunctionNames_e */
extern NPIdentifier piFunctions[FUNCTION_COUNT];

extern const char* const psParamNames[PARAM_COUNT]; /**< indexed by ParamNames_e */

extern const char* const psListenersPropertyNames[LISTENER_COUNT]; /**< indexed by ListenerNames_e */
extern NPIdentifier piListenersPropertyIdentifiers[LISTENER_COUNT];

extern const char* const psDOMEventNames[DOM_EVENT_COUNT]; /**< indexed by DOMEvents_e */

/** @return the index of a parameter's name, or -1; names are case-sensitive */
int findParam(const char* name);

#endif
