/** Marks the functions that libmedia-control.so offers; everything else in it is hidden. */
#ifndef MEDIA_CONTROL_EXPORT_H
#define MEDIA_CONTROL_EXPORT_H

#define MEDIA_EXPORT __attribute__((visibility("default")))

#endif
