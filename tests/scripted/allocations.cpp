#include "allocations.h"

#include <dlfcn.h>
#include <stddef.h>
#include <string.h>

#include <new>

// The allocator behind malloc: a sanitizer's, when there is one.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
extern "C" void* __interceptor_malloc(size_t size);
#define NEXT_MALLOC __interceptor_malloc
#else
extern "C" void* __libc_malloc(size_t size);
#define NEXT_MALLOC __libc_malloc
#endif

namespace fake {
namespace {

thread_local bool watching = false;
thread_local int count = 0;
thread_local int failing = 0;

// Tests and the C++ library allocate too; only what the libraries under test ask for counts.
bool failsFor(void* returnAddress) {
    Dl_info info = {};
    watching = false;
    const bool found = dladdr(returnAddress, &info) != 0 && info.dli_fname &&
                       (strstr(info.dli_fname, "avcontrol-plugin") || strstr(info.dli_fname, "hbbtv-plugin-framework"));
    watching = true;
    return found && allocationFails();
}

} // namespace

void failAllocation(int nth) {
    watching = true;
    count = 0;
    failing = nth;
}

int countAllocations() {
    const int counted = count;
    failAllocation(0);
    return counted;
}

bool allocationFails() {
    return watching && ++count == failing;
}

} // namespace fake

// Replacements of the process-wide functions, for the libraries too.
#define CALLER __builtin_return_address(0)

// A sanitizer allocates before it is ready to check accesses.
extern "C" __attribute__((no_sanitize("address", "thread", "undefined"))) void* malloc(size_t size) {
    return fake::watching && fake::failsFor(CALLER) ? nullptr : NEXT_MALLOC(size);
}

void* operator new(size_t size, const std::nothrow_t&) noexcept {
    return fake::watching && fake::failsFor(CALLER) ? nullptr : ::operator new(size);
}

void* operator new[](size_t size, const std::nothrow_t&) noexcept {
    return fake::watching && fake::failsFor(CALLER) ? nullptr : ::operator new[](size);
}
