/** What script does with a plug-in: functions of the page among the values are kept, and the trace hears of it. */
#ifndef PLUGINCALLS_H
#define PLUGINCALLS_H

#include "npapi/instance/InstanceRef.h"

/** Writes a property. The instance may be gone afterwards. @return false when the plug-in refuses it */
bool writePlugin(const InstanceRef& instance, NPIdentifier name, const NPVariant& value);

/**
 * Calls a method. The instance may be gone afterwards.
 * @param element the object on which script called it
 * @param result  a Void value on entry
 * @return false when the plug-in has no such method
 */
bool invokePlugin(const InstanceRef& instance, const ScriptObject& element, NPIdentifier name, const NPVariant* args,
                  uint32_t argCount, NPVariant* result);

#endif
