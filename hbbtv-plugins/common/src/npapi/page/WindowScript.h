/** The framework's own script functions, made in the page's window. */
#ifndef WINDOWSCRIPT_H
#define WINDOWSCRIPT_H

#include "npapi/npruntime.h"

/**
 * Makes a function in the page's window.
 * @param parameters names of its parameters, separated by commas
 * @param body       its statements
 * @return the function, with a reference for the caller; null when the page has no window or forbids scripts
 */
NPObject* makeWindowFunction(NPP npp, const char* parameters, const char* body);

#endif
