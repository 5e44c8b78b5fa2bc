/**
 * The objects that pages embed beside the A/V Control object, and the factory: scripts of the folder js, which every
 * frame gets before the page's own.
 */
#ifndef EMBEDDEDOBJECTS_H
#define EMBEDDEDOBJECTS_H

class QUrl;
class QWebFrame;

namespace tv {

class OwnerApplication;

/** Gives the objects to the page of a frame. To be called when its window object is new. */
void installEmbeddedObjects(QWebFrame& frame, OwnerApplication& application);

/** @return address of the style sheet that belongs to the objects */
QUrl embeddedObjectsStyleSheet();

} // namespace tv

#endif
