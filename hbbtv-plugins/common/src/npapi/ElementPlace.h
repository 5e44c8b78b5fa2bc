/** Where an instance's element is on the screen. */
#ifndef ELEMENTPLACE_H
#define ELEMENTPLACE_H

#include "npapi/npapi.h"

/**
 * Asks the page for the top left corner of the element's content, frames included. May run layout, so not to be called
 * while the engine lays out or paints.
 * @param x,y pixels from the top left corner of the browser's picture
 * @return false when the page does not tell
 */
bool findElementPlace(NPP npp, int32_t* x, int32_t* y);

#endif
