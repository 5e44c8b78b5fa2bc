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

/** @return a script object with one reference, the caller's; null without memory */
PluginScriptObject* createPluginScriptObject(PluginInstance& instance);

#endif
