/** The script object through which script reaches a plug-in instance. */
#ifndef PLUGINSCRIPTOBJECT_H
#define PLUGINSCRIPTOBJECT_H

#include "npapi/npruntime.h"

class PluginInstance;

/** Counted by the engine; may outlive its instance, and then answers nothing. */
struct PluginScriptObject {
    NPObject object;
    PluginInstance* instance; ///< null when the instance has gone
};

/**
 * Calls a method of the plug-in; functions of the page among the arguments are kept. The instance may be gone
 * afterwards. @return false when the plug-in has no such method
 */
bool invokePlugin(PluginInstance& instance, NPObject* element, NPIdentifier name, const NPVariant* args,
                  uint32_t argCount, NPVariant* result);

/** @return a script object with one reference, the caller's; null without memory */
PluginScriptObject* createPluginScriptObject(PluginInstance& instance);

#endif
