/** The objects that pages embed beside the A/V Control object, and their factory: the scripts of the folder js. */
#ifndef EMBEDDEDOBJECTS_H
#define EMBEDDEDOBJECTS_H

class QUrl;
class QWebFrame;

namespace tv {

class OwnerApplication;

/** Runs the scripts in a frame. Call it when the frame's window object is new, before the page's own scripts run. */
void installEmbeddedObjects(QWebFrame& frame, OwnerApplication& application);

/** @return the address of the objects' style sheet */
QUrl embeddedObjectsStyleSheet();

} // namespace tv

#endif
