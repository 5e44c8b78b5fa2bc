/**
 * Fixed-width types of the Netscape Plug-in API (NPAPI).
 *
 * NPAPI predates <stdint.h>; its published structures use these widths.
 */
#ifndef NPTYPES_H
#define NPTYPES_H

#include <stdbool.h>
#include <stdint.h>

#endif
