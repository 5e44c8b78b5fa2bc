/** The data block of a report: where it lies, and its end. */
#ifndef COMPLIANCE_DATABLOCK_H
#define COMPLIANCE_DATABLOCK_H

#include "kit/Journal.h"

namespace compliance {

/**
 * Frees a block as the plug-in does, unless it cannot be from malloc(): freeing that would end the process.
 * @param data may be null. Thread: that of the report.
 */
DataKind takeDataBlock(void* data);

} // namespace compliance

#endif
