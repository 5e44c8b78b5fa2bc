/** Allocations of the libraries under test, on one thread: counted, and failed on request. */
#ifndef ALLOCATIONS_H
#define ALLOCATIONS_H

namespace fake {

/**
 * Makes one allocation of the libraries fail: malloc, new (std::nothrow) and NPN_MemAlloc alike; the count begins anew.
 * @param nth 1 for the next one, 0 for none
 */
void failAllocation(int nth);

/** @return allocations since failAllocation; none fails any more */
int countAllocations();

/** Counts one allocation. @return true when it is the one that is to fail */
bool allocationFails();

} // namespace fake

#endif
