/** Where an instance's element is on the screen. */
#ifndef ELEMENTRECTANGLE_H
#define ELEMENTRECTANGLE_H

#include "npapi/npapi.h"

/** Place and size of an element's content, in pixels of the browser's picture. */
struct ElementRectangle {
    int32_t x;
    int32_t y;
    uint32_t width;
    uint32_t height;
};

/**
 * Asks the page for the place of an instance's element: the position on the screen, frames included, and the size that
 * layout gave it, before any transformation. May run layout, so not to be called while the engine lays out or paints.
 * @param place left as it is when the page does not tell
 * @return false when the page does not tell
 */
bool findElementPlace(NPP npp, ElementRectangle* place);

#endif
