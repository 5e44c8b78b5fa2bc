// Allocations that report their failure by an exception. The libraries are built without exceptions: it would end the
// process of the television, as it does here.
#include "allocations.h"

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>

#include <new>

namespace {

void* allocate(size_t size, void* caller, const char* symbol) {
    if (fake::allocationFailsFor(caller)) {
        fputs("ERROR: AddressSanitizer: unchecked-allocation failed\n", stderr); // as a sanitizer begins its report
        abort();
    }
    return reinterpret_cast<void* (*)(size_t)>(dlsym(RTLD_NEXT, symbol))(size);
}

} // namespace

void* operator new(size_t size) {
    return allocate(size, __builtin_return_address(0), "_Znwm");
}

void* operator new[](size_t size) {
    return allocate(size, __builtin_return_address(0), "_Znam");
}
