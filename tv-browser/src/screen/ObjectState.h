/** Reads how an A/V Control object of a page stands on the screen. */
#ifndef OBJECTSTATE_H
#define OBJECTSTATE_H

#include <QRectF>
#include <QSizeF>

class QWebElement;

namespace tv {

/** An A/V Control object at one moment. */
struct ObjectState {
    int player = -1;           ///< handle of the adaptation layer, negative without one
    bool isFullScreen = false; ///< the player's window is the whole screen
    bool isVisible = true;     ///< neither hidden nor transparent, by itself or by an element around it
    QRectF box;                ///< in the frame's viewport, in the same pixels
    QSizeF viewport;           ///< the frame's size
};

/** Reads the state of an object or embed element by script, which the timeline leaves out. Thread: the engine's. */
ObjectState objectStateOf(QWebElement element);

} // namespace tv

#endif
