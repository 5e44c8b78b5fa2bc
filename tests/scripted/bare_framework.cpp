// A framework as small as one can be: the engine's functions for programs that drive the plug-in itself.
#include "page.h"
#include "script_objects.h"

#include "VideoPlugin.h"

#include <utility>

namespace fake {
namespace {

struct Scriptable : NPObject {
    VideoPlugin* plugin; ///< null when it has gone
};

std::map<NPP, Scriptable*>& instances() {
    static std::map<NPP, Scriptable*> all;
    return all;
}

PluginBaseClass* pluginOf(NPObject* object) {
    return static_cast<Scriptable*>(object)->plugin;
}

NPClass scriptableClass = {
    NP_CLASS_STRUCT_VERSION,
    [](NPP, NPClass*) -> NPObject* { return new Scriptable(); },
    [](NPObject* object) { delete static_cast<Scriptable*>(object); },
    nullptr,
    [](NPObject* object, NPIdentifier name) { return pluginOf(object) && pluginOf(object)->hasMethod(name); },
    [](NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t count, NPVariant* result) {
        return pluginOf(object)->invoke(browser().element, name, args, count, result);
    },
    nullptr,
    [](NPObject* object, NPIdentifier name) { return pluginOf(object) && pluginOf(object)->hasProperty(name); },
    [](NPObject* object, NPIdentifier name, NPVariant* result) { return pluginOf(object)->getProperty(name, result); },
    [](NPObject* object, NPIdentifier name, const NPVariant* value) {
        return pluginOf(object) && pluginOf(object)->setProperty(name, value);
    },
    nullptr,
    nullptr,
    nullptr};

NPError newInstance(NPMIMEType type, NPP handle, uint16_t mode, int16_t argc, char* argn[], char* argv[],
                    NPSavedData* saved) {
    Scriptable* made = static_cast<Scriptable*>(makeObject(handle, &scriptableClass));
    instances()[handle] = made;
    made->plugin = new VideoPlugin(nullptr);
    PluginBaseClass& plugin = *made->plugin;
    plugin.initialize(type, handle, mode, argc, argn, argv, saved);
    for (int16_t i = 0; i < argc; ++i) {
        plugin.setParam(argn[i], argv[i]);
    }
    return NPERR_NO_ERROR;
}

NPError destroyInstance(NPP handle, NPSavedData**) {
    Scriptable* going = instances().at(handle);
    instances().erase(handle);
    delete std::exchange(going->plugin, nullptr);
    release(going);
    return NPERR_NO_ERROR;
}

NPError setWindow(NPP handle, NPWindow* window) {
    return static_cast<PluginBaseClass*>(instances().at(handle)->plugin)->setWindow(handle, window);
}

NPError getValue(NPP handle, NPPVariable, void* value) {
    *static_cast<NPObject**>(value) = retain(instances().at(handle));
    return NPERR_NO_ERROR;
}

} // namespace

PluginBaseClass* pluginBehind(NPP handle) {
    return instances().at(handle)->plugin;
}

const NPPluginFuncs& pluginFunctions() {
    static NPPluginFuncs table = [] {
        NPPluginFuncs functions = {};
        functions.newp = newInstance;
        functions.destroy = destroyInstance;
        functions.setwindow = setWindow;
        functions.getvalue = getValue;
        functions.event = [](NPP, void*) -> int16_t { return 0; };
        return functions;
    }();
    return table;
}

} // namespace fake
