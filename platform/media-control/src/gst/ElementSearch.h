/** Finds what playbin has put into a pipeline. */
#ifndef MEDIA_CONTROL_ELEMENTSEARCH_H
#define MEDIA_CONTROL_ELEMENTSEARCH_H

#include "gst/GstPointer.h"

#include <vector>

namespace media {

/** @return the elements of that factory, at any depth of the pipeline. Thread: any. */
std::vector<ElementPtr> findElements(GstElement* pipeline, const char* factory);

/** @return the demuxers of HLS and DASH in the pipeline. Thread: any. */
std::vector<ElementPtr> findAdaptiveDemuxers(GstElement* pipeline);

} // namespace media

#endif
