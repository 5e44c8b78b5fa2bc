/**
 * What the television asks a media object of a page.
 */
#ifndef OBJECTSTATE_H
#define OBJECTSTATE_H

#include <QRectF>
#include <QSizeF>

class QWebElement;

namespace tv {

struct ObjectState {
    int player = -1; ///< handle of the adaptation layer, negative without one
    bool isFullScreen = false;
    bool isSeen = true; ///< neither hidden nor transparent, by itself or by what it is in
    QRectF box;         ///< in the frame's viewport, as its size
    QSizeF viewport;
};

/** Asks an object or embed element by script, which the timeline does not tell. Thread: the engine's. */
ObjectState objectStateOf(QWebElement element);

} // namespace tv

#endif
