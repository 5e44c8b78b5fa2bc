// The module that an engine loads for the A/V Control object: its entry points, and the plug-in that they carry.
#include "HbbTVExport.h"
#include "HbbTVModule.h"
#include "VideoPlugin.h"

#include <new>

namespace {

PluginBaseClass* createVideoPlugin(char* hostUri) {
    return new (std::nothrow) VideoPlugin(hostUri);
}

const char* const adoptedProperties[] = {"onPlayStateChange",
                                         "onPlaySpeedChanged",
                                         "onPlayPositionChanged",
                                         "onFullScreenChange",
                                         "onfocus",
                                         "onblur",
                                         "onDRMRightsError",
                                         "onSelectedComponentChange",
                                         "onSelectedComponentChanged",
                                         "onComponentChanged",
                                         "onParentalRatingChange",
                                         "loop",
                                         "cache",
                                         "persist",
                                         "currentTrackIndex",
                                         "fullScreen",
                                         nullptr};

const HbbTVListenerProperty listenerProperties[] = {{"PlayStateChange", "state"},
                                                    {"PlayPositionChanged", "position"},
                                                    {"PlaySpeedChanged", "speed"},
                                                    {"SelectedComponentChange", "componentType"},
                                                    {nullptr, nullptr}};

const HbbTVModule avControlModule = {VideoPlugin::GetMIMEDescription,
                                     VideoPlugin::GetPluginNameString,
                                     VideoPlugin::GetPluginDescriptionString,
                                     createVideoPlugin,
                                     adoptedProperties,
                                     listenerProperties};

} // namespace

HBBTV_EXPORT NPError NP_Initialize(NPNetscapeFuncs* browser, NPPluginFuncs* plugin) {
    return hbbtvModuleInitialize(&avControlModule, browser, plugin);
}

HBBTV_EXPORT NPError NP_Shutdown() {
    return hbbtvModuleShutdown();
}

HBBTV_EXPORT const char* NP_GetMIMEDescription() {
    return avControlModule.mimeDescription();
}

HBBTV_EXPORT NPError NP_GetValue(void* /*future*/, NPPVariable variable, void* value) {
    return hbbtvModuleGetValue(&avControlModule, variable, value);
}
