/** The script object through which script reaches a plug-in instance. */
#ifndef PLUGINSCRIPTOBJECT_H
#define PLUGINSCRIPTOBJECT_H

#include "npapi/instance/InstanceRef.h"

/**
 * The script object of an instance, made at the first call. It may outlive the instance, and then answers nothing.
 * @return empty without memory, and while the page's record is read
 */
ScriptObject scriptObjectOf(const InstanceRef& instance);

#endif
