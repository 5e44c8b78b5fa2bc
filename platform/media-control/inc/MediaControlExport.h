/** Marks the functions that libmedia-control.so offers; everything else in it is hidden. */
#ifndef MEDIACONTROLEXPORT_H
#define MEDIACONTROLEXPORT_H

#define MEDIA_EXPORT __attribute__((visibility("default")))

#endif
