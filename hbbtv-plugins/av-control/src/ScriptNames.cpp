#include "ScriptNames.h"

#include <string.h>

const char* const psProperties[PROPERTY_COUNT] = {"COMPONENT_TYPE_VIDEO",
                                                  "COMPONENT_TYPE_AUDIO",
                                                  "COMPONENT_TYPE_SUBTITLE",
                                                  "data",
                                                  "playPosition",
                                                  "playTime",
                                                  "playState",
                                                  "error",
                                                  "speed",
                                                  "nrTracks",
                                                  "currentTrackIndex",
                                                  "onPlayStateChange",
                                                  "onPlaySpeedChanged",
                                                  "onPlayPositionChanged",
                                                  "persist",
                                                  "width",
                                                  "height",
                                                  "fullScreen",
                                                  "onFullScreenChange",
                                                  "onfocus",
                                                  "onblur",
                                                  "id",
                                                  "cache",
                                                  "loop",
                                                  "onDRMRightsError",
                                                  "onSelectedComponentChange",
                                                  "onSelectedComponentChanged",
                                                  "onComponentChanged",
                                                  "onParentalRatingChange"};

AccessRight parProperties[PROPERTY_COUNT] = {
    RW, RW, RW, RW, // COMPONENT_TYPE_VIDEO, COMPONENT_TYPE_AUDIO, COMPONENT_TYPE_SUBTITLE, data
    R,  R,  RW, R,  // playPosition, playTime, playState, error
    R,  R,  RW, RW, // speed, nrTracks, currentTrackIndex, onPlayStateChange
    RW, RW, RW, RW, // onPlaySpeedChanged, onPlayPositionChanged, persist, width
    RW, RW, RW, RW, // height, fullScreen, onFullScreenChange, onfocus
    RW, RW, RW, RW, // onblur, id, cache, loop
    RW, RW, RW, RW, // onDRMRightsError, onSelectedComponentChange, onSelectedComponentChanged, onComponentChanged
    RW              // onParentalRatingChange
};

NPIdentifier piProperties[PROPERTY_COUNT];

const char* const pcFunctions[FUNCTION_COUNT] = {"play",
                                                 "stop",
                                                 "seek",
                                                 "setVolume",
                                                 "next",
                                                 "previous",
                                                 "getSinkProtocolInfo",
                                                 "getTransportStateVariables",
                                                 "setTransportStateVariables",
                                                 "setFullScreen",
                                                 "focus",
                                                 "queue",
                                                 "addEventListener",
                                                 "removeEventListener",
                                                 "getComponents",
                                                 "getCurrentActiveComponents",
                                                 "selectComponent",
                                                 "unselectComponent",
                                                 "getPluginType",
                                                 "getMediaHandle",
                                                 "getPluginElement"};

NPIdentifier piFunctions[FUNCTION_COUNT];

const char* const psParamNames[PARAM_COUNT] = {"id",    "type",  "data", "width",     "height",
                                               "style", "cache", "loop", "subtitles", "captions"};

const char* const psListenersPropertyNames[LISTENER_COUNT] = {"PlayStateChange",
                                                              "SelectedComponentChange",
                                                              "PlayPositionChanged",
                                                              "PlaySpeedChanged",
                                                              "FullScreenChange",
                                                              "focus",
                                                              "blur",
                                                              "DRMRightsError",
                                                              "ComponentChanged",
                                                              "ParentalRatingChange"};

NPIdentifier piListenersPropertyIdentifiers[LISTENER_COUNT];

const char* const psDOMEventNames[DOM_EVENT_COUNT] = {"focus", "blur", "PlayStateChange", "FullscreenChange"};

int findParam(const char* name) {
    for (int i = 0; i < PARAM_COUNT; ++i) {
        if (!strcmp(name, psParamNames[i])) {
            return i;
        }
    }
    return -1;
}
