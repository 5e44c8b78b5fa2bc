// The module that an engine loads for the A/V Control object: its entry points, and the plug-in that they carry.
#include "AVControlElement.h"
#include "HbbTVExport.h"
#include "HbbTVModule.h"
#include "VideoPlugin.h"

#include "tos_log.h"

#include <new>

namespace {

PluginBaseClass* createVideoPlugin(char* hostUri) {
    return new (std::nothrow) VideoPlugin(hostUri);
}

#define LIST_PROPERTY(name) name,
const char* const adoptedProperties[] = {AVCONTROL_KEPT_PROPERTIES(LIST_PROPERTY) nullptr};
#undef LIST_PROPERTY

#define LIST_LISTENER(type, property) {type, property},
const HbbTVListenerProperty listenerProperties[] = {AVCONTROL_KEPT_LISTENERS(LIST_LISTENER){nullptr, nullptr}};
#undef LIST_LISTENER

const HbbTVModule avControlModule = {
    VideoPlugin::GetMIMEDescription,
    VideoPlugin::GetPluginNameString,
    VideoPlugin::GetPluginDescriptionString,
    createVideoPlugin,
    adoptedProperties,
    listenerProperties,
    {AVCONTROL_ELEMENT_PROPERTY, AVCONTROL_ELEMENT_LISTENER, AVCONTROL_ELEMENT_ATTRIBUTE, AVCONTROL_ELEMENT_FUNCTION},
    "data",
    "playState",
    "fullScreen",
    EN_MODEL_ID_AVCONTROL};

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
