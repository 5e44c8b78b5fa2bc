/** Marks what a library exports; everything else is hidden. */
#ifndef HBBTVEXPORT_H
#define HBBTVEXPORT_H

#if defined(__GNUC__)
#define HBBTV_EXPORT __attribute__((visibility("default")))
#else
#define HBBTV_EXPORT
#endif

#endif
