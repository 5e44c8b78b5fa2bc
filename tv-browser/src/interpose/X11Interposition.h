/**
 * Stand-ins for the X functions with which the engine paints plug-in elements.
 *
 * The engine has a plug-in paint into an X pixmap and fetches the result with XGetImage. This program defines these
 * functions itself, so that it says what an element looks like, and that no X server is needed for it.
 */
#ifndef X11INTERPOSITION_H
#define X11INTERPOSITION_H

#include <cstdint>

namespace tv {

/** While one exists, every plug-in element is painted in one colour. One at a time, on the engine's thread. */
class PluginElementColour {
public:
    /** @param argb the colour, premultiplied */
    explicit PluginElementColour(uint32_t argb);
    ~PluginElementColour();

    PluginElementColour(const PluginElementColour&) = delete;
    PluginElementColour& operator=(const PluginElementColour&) = delete;

    /** @return true when an element was painted since construction */
    bool wasUsed() const;
};

} // namespace tv

#endif
