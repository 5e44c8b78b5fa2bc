/** A browser engine as small as the plug-in allows: script objects, names, values, and a queue of calls. */
#ifndef ENGINE_H
#define ENGINE_H

#include "npapi/npruntime.h"

/** A function of the page. @param arguments as the plug-in passes them, its own */
using PageFunction = void (*)(const NPVariant* arguments, uint32_t count);

/** @return a script object that calls `function`, with one reference for the caller; null without memory */
NPObject* makePageFunction(PageFunction function);

/** Runs what was handed to NPN_PluginThreadAsyncCall, in order, until nothing waits. Thread: the plug-in thread. */
void runQueuedCalls();

#endif
