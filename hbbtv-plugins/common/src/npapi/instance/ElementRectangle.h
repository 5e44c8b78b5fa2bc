/** Where an instance's element is on the screen. */
#ifndef ELEMENTRECTANGLE_H
#define ELEMENTRECTANGLE_H

#include "npapi/instance/InstanceRef.h"

/** Position and size of an element's content, in pixels of the browser's screen. */
struct ElementRectangle {
    int32_t x;
    int32_t y;
    uint32_t width;
    uint32_t height;
};

/**
 * Asks the page for the rectangle of an instance's element: the position on the screen, frames included, and the size
 * that layout gave it, before any transformation. May run layout, so not to be called while the engine lays out or
 * paints; the instance may be gone afterwards.
 * @param rectangle left as it is when the page does not report one
 * @return false when the page does not report one
 */
bool findElementRectangle(const InstanceRef& instance, ElementRectangle* rectangle);

#endif
