#include "kit/DataBlock.h"

#include <cstdlib>
#include <dlfcn.h>
#include <pthread.h>

namespace compliance {
namespace {

bool isOnThisStack(const void* address) {
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) {
        return false;
    }
    void* lowest = nullptr;
    size_t size = 0;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    const char* start = static_cast<const char*>(lowest);
    return address >= start && address < start + size;
}

/** @return whether a loaded library or the program itself has the address in its memory */
bool isStatic(const void* address) {
    Dl_info info = {};
    return dladdr(address, &info) != 0;
}

} // namespace

DataKind takeDataBlock(void* data) {
    if (!data) {
        return DataKind::NONE;
    }
    if (isOnThisStack(data)) {
        return DataKind::STACK;
    }
    if (isStatic(data)) {
        return DataKind::STATIC;
    }
    std::free(data);
    return DataKind::HEAP;
}

} // namespace compliance
