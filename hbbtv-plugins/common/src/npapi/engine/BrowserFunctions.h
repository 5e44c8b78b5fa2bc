/** The table of functions that the engine gave. */
#ifndef BROWSERFUNCTIONS_H
#define BROWSERFUNCTIONS_H

#include "npapi/npfunctions.h"

/** Copies the engine's table as far as it reaches. @return NPERR_NO_ERROR, or why the engine cannot be used */
NPError setBrowserFunctions(const NPNetscapeFuncs* browser);

/** @return the engine's functions; members that the engine does not have are null */
const NPNetscapeFuncs& browserFunctions();

#endif
