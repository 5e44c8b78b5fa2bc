/** The framework's own script functions, made in the page's window. */
#ifndef WINDOWSCRIPT_H
#define WINDOWSCRIPT_H

#include "npapi/npruntime.h"

/**
 * Makes a function in the page's window.
 * @param parameters names of its parameters, separated by commas
 * @param body       its statements
 * @param function   receives it, to be released by the caller; undefined unless made
 * @return whether it was made
 */
bool makeWindowFunction(NPP npp, const char* parameters, const char* body, NPVariant* function);

#endif
