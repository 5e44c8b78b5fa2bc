/** Allocations of the libraries under test, on one thread: counted, and failed on request. */
#ifndef ALLOCATIONS_H
#define ALLOCATIONS_H

namespace fake {

/**
 * Makes one allocation of the libraries fail: malloc, new (std::nothrow) and NPN_MemAlloc alike, and in programs with
 * throwing_new.cpp the others, which end the process; the count begins anew.
 * @param nth     1 for the next one, 0 for none
 * @param onwards those that follow fail too
 */
void failAllocation(int nth, bool onwards = false);

/** @return allocations since failAllocation; none fails any more */
int countAllocations();

/** Counts one allocation. @return true when it is the one that is to fail */
bool allocationFails();

/** Counts an allocation if the libraries ask for it. @param caller a return address. @return as above */
bool allocationFailsFor(void* caller);

/** Called at each allocation that counts, before it succeeds or fails; null for none. */
extern void (*atAllocation)(int number);

} // namespace fake

#endif
