/** Calls of the page's functions. */
#ifndef PAGECALL_H
#define PAGECALL_H

#include "npapi/npruntime.h"

/**
 * Calls a function of the page as an event handler of the instance's element: `this` is the element, and an exception
 * is reported to `window.onerror` and the console, where engines drop those of functions that a plug-in calls.
 * Parameters and result as NPN_InvokeDefault. False, too, when the instance has gone.
 */
bool callPageFunction(NPP npp, NPObject* function, const NPVariant* args, uint32_t argCount, NPVariant* result);

#endif
