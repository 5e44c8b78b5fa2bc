/** Calls of the page's functions. */
#ifndef PAGECALL_H
#define PAGECALL_H

#include "npapi/instance/InstanceRef.h"

/**
 * Calls a function of the page as an event handler of the instance's element: `this` is the element, and an exception
 * is reported to `window.onerror` and the console, where engines drop those of functions that a plug-in calls.
 * @param function may be empty: nothing is called
 * @return the result; not answered when the function was not called or failed
 */
ScriptValue callPageFunction(const InstanceRef& instance, const ScriptObject& function, const NPVariant* args,
                             uint32_t argCount);

#endif
