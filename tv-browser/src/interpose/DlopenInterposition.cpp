/**
 * Lets a build with sanitizers load plug-ins: the engine loads them with RTLD_DEEPBIND, on which a sanitizer's run time
 * ends the program. Only such builds contain this file.
 */
#include <dlfcn.h>

extern "C" __attribute__((visibility("default"))) void* dlopen(const char* file, int mode) {
    static const auto original = reinterpret_cast<decltype(&dlopen)>(dlsym(RTLD_NEXT, "dlopen"));
    return original(file, mode & ~RTLD_DEEPBIND);
}
