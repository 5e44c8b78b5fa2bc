/** The framework's own script functions, made in the page's window. */
#ifndef WINDOWSCRIPT_H
#define WINDOWSCRIPT_H

#include "npapi/instance/InstanceRef.h"

/**
 * Makes a function in the page's window. Script may run.
 * @param parameters names of its parameters, separated by commas
 * @param body       its statements
 * @return the function; empty when the page has no window or forbids scripts
 */
ScriptObject makeWindowFunction(const InstanceRef& instance, const char* parameters, const char* body);

#endif
