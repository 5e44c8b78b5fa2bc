// The functions that an engine calls: module entry points and the NPP_ table.
#include "HbbTVModule.h"

#include "FrameworkLog.h"
#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/PluginInstance.h"
#include "npapi/page/PageRecord.h"
#include "npapi/page/PluginScriptObject.h"

#include <algorithm>
#include <string.h>

namespace {

const HbbTVModule* currentModule = nullptr;

NPError newInstance(NPMIMEType type, NPP npp, uint16_t mode, int16_t argc, char* argn[], char* argv[],
                    NPSavedData* saved) {
    if (!npp) {
        return NPERR_INVALID_INSTANCE_ERROR;
    }
    // Only windowless instances are laid out and painted with the page.
    NPN_SetValue(npp, NPPVpluginWindowBool, nullptr);
    const InstanceRef instance = PluginInstance::make(*currentModule, npp, type);
    if (!instance) {
        return NPERR_OUT_OF_MEMORY_ERROR;
    }
    if (!PluginInstance::start(instance, type, mode, argc, argn, argv, saved)) {
        PluginInstance::end(instance);
        return NPERR_GENERIC_ERROR;
    }
    scheduleRecord(instance);
    return NPERR_NO_ERROR;
}

NPError destroyInstance(NPP npp, NPSavedData** /*save*/) {
    const InstanceRef instance = InstanceRef::of(npp);
    if (!instance) {
        return NPERR_INVALID_INSTANCE_ERROR;
    }
    PluginInstance::end(instance);
    return NPERR_NO_ERROR;
}

NPError setWindow(NPP npp, NPWindow* window) {
    const InstanceRef instance = InstanceRef::of(npp);
    if (!instance) {
        return NPERR_INVALID_INSTANCE_ERROR;
    }
    if (window) {
        elementLaidOut(instance, *window);
    }
    return NPERR_NO_ERROR;
}

// The player fetches the media itself: the engine's own download is refused.
NPError newStream(NPP, NPMIMEType, NPStream*, NPBool, uint16_t*) {
    return NPERR_GENERIC_ERROR;
}

NPError destroyStream(NPP, NPStream*, NPReason) {
    return NPERR_NO_ERROR;
}

void streamAsFile(NPP, NPStream*, const char*) {}

int32_t writeReady(NPP, NPStream*) {
    return 0;
}

int32_t write(NPP, NPStream*, int32_t, int32_t, void*) {
    return -1;
}

void print(NPP, NPPrint*) {}

int16_t handleEvent(NPP npp, void* event) {
    // An XEvent begins with its type; 13 is GraphicsExpose: the element is painted, perhaps at a new position.
    constexpr int GRAPHICS_EXPOSE = 13;
    int type = 0;
    if (event) {
        memcpy(&type, event, sizeof type);
    }
    if (type == GRAPHICS_EXPOSE) {
        elementMayHaveMoved(InstanceRef::of(npp));
    }
    return 0;
}

void urlNotify(NPP, const char*, NPReason, void*) {}

NPError getValue(NPP npp, NPPVariable variable, void* value) {
    if (variable == NPPVpluginScriptableNPObject && value) {
        const InstanceRef instance = InstanceRef::of(npp);
        settleRecord(instance);
        NPObject* const object = scriptObjectOf(instance).release();
        *static_cast<NPObject**>(value) = object;
        return object ? NPERR_NO_ERROR : NPERR_GENERIC_ERROR;
    }
    return hbbtvModuleGetValue(currentModule, variable, value);
}

NPError setValue(NPP, NPNVariable, void*) {
    return NPERR_GENERIC_ERROR;
}

} // namespace

NPError hbbtvModuleInitialize(const HbbTVModule* module, NPNetscapeFuncs* browser, NPPluginFuncs* plugin) {
    if (!plugin) {
        return NPERR_INVALID_FUNCTABLE_ERROR;
    }
    const NPError result = setBrowserFunctions(browser);
    if (result != NPERR_NO_ERROR) {
        return result;
    }
    currentModule = module;
    setFrameworkLogModule(module->logModule);
    NPPluginFuncs table;
    memset(&table, 0, sizeof table);
    table.size = static_cast<uint16_t>(std::min<size_t>(plugin->size ? plugin->size : sizeof table, sizeof table));
    table.version = NP_VERSION_MAJOR << 8 | NP_VERSION_MINOR;
    table.newp = newInstance;
    table.destroy = destroyInstance;
    table.setwindow = setWindow;
    table.newstream = newStream;
    table.destroystream = destroyStream;
    table.asfile = streamAsFile;
    table.writeready = writeReady;
    table.write = write;
    table.print = print;
    table.event = handleEvent;
    table.urlnotify = urlNotify;
    table.getvalue = getValue;
    table.setvalue = setValue;
    memcpy(plugin, &table, table.size);
    return NPERR_NO_ERROR;
}

NPError hbbtvModuleGetValue(const HbbTVModule* module, NPPVariable variable, void* value) {
    if (!value) {
        return NPERR_INVALID_PARAM;
    }
    switch (variable) {
    case NPPVpluginNameString:
        *static_cast<char**>(value) = module->name();
        return NPERR_NO_ERROR;
    case NPPVpluginDescriptionString:
        *static_cast<char**>(value) = module->description();
        return NPERR_NO_ERROR;
    case NPPVpluginNeedsXEmbed:
        *static_cast<NPBool*>(value) = 0;
        return NPERR_NO_ERROR;
    default:
        return NPERR_INVALID_PARAM;
    }
}

NPError hbbtvModuleShutdown() {
    drainAsyncCalls();
    return NPERR_NO_ERROR;
}
