/** Logs each call of the platform: the first thing to see in a port. */
#ifndef PORT_SKELETON_TRACE_H
#define PORT_SKELETON_TRACE_H

/** Before the definition of a function of the platform. */
#define PLATFORM extern "C" __attribute__((visibility("default")))

namespace skeleton {

/**
 * Writes a line to standard error: "skeleton: " and the call. Silent unless the environment has SKELETON_TRACE.
 * Thread: any.
 */
__attribute__((format(printf, 1, 2))) void trace(const char* format, ...);

} // namespace skeleton

#endif
