/** The end of a pipeline. */
#ifndef MEDIA_CONTROL_PIPELINESHUTDOWN_H
#define MEDIA_CONTROL_PIPELINESHUTDOWN_H

#include "gst/GstPointer.h"
#include "gst/PlayerThread.h"

namespace media {

/**
 * Takes a pipeline out of use.
 * @param thread   the player's thread, which is the one that calls; kept alive until the pipeline is gone
 * @param pipeline without a bus watch; no longer the caller's
 * @param settled  it has prerolled, or failed: it can be shut down without more ado. While it prerolls that aborts or
 * hangs in GStreamer, so such a pipeline is first left to finish that.
 */
void endPipeline(PlayerThread& thread, ElementPtr pipeline, bool settled);

} // namespace media

#endif
