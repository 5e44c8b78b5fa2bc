/**
 * Overrides the X11 functions with which the engine paints plug-in elements.
 *
 * Why: the engine has a plug-in paint into an X pixmap and fetches the result with XGetImage(), and offers no other way
 * to say what an element looks like. Because the program defines these functions itself, elements can be painted in one
 * colour, which shows where video is visible, and no X server is needed.
 */
#ifndef X11INTERPOSITION_H
#define X11INTERPOSITION_H

#include <cstdint>

namespace tv {

/** While one exists, every plug-in element is painted in one colour. One at a time. Thread: the engine's. */
class PluginElementColour {
public:
    /** @param argb the colour, premultiplied */
    explicit PluginElementColour(uint32_t argb);
    ~PluginElementColour();

    PluginElementColour(const PluginElementColour&) = delete;
    PluginElementColour& operator=(const PluginElementColour&) = delete;

    /** @return true when an element has been painted since construction */
    bool wasUsed() const;
};

} // namespace tv

#endif
