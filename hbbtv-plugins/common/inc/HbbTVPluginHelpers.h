/** Functions that the framework offers to its plug-ins. */
#ifndef HBBTVPLUGINHELPERS_H
#define HBBTVPLUGINHELPERS_H

#include "HbbTVExport.h"

#include "npapi/npapi.h"
#include "npapi/npruntime.h"

/**
 * Gets the address of the page that contains an instance.
 * @param instance address of the instance's handle
 * @param url      receives the address as zero-terminated UTF-8
 * @param size     bytes at `url`
 * @return true when the address was written; false when there is none or it does not fit: `url` is then empty
 *         (unchanged when `size` is 0)
 * Thread: the browser's plug-in thread.
 */
HBBTV_EXPORT bool GetPageUrl(NPP* instance, char* url, size_t size);

/** Writes a value's type and content as an ordinary log line. */
HBBTV_EXPORT void PrintVariant(NPVariant value);

#endif
