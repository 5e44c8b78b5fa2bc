/** What a process holds: threads, descriptors, memory. To compare before and after. */
#ifndef COMPLIANCE_TRACES_H
#define COMPLIANCE_TRACES_H

namespace compliance {

/** @return -1 where the system does not say (no /proc) */
long countThreads();
long countDescriptors();

/** @return bytes of the heap that are in use, or resident bytes where the library does not say */
long heapBytes();

/** @return how often the process has read from files since it began, -1 where the system does not say */
long countReads();

} // namespace compliance

#endif
