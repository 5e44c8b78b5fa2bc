/**
 * Overrides dlopen() in builds with sanitizers, which alone contain this file.
 *
 * Why: the engine loads plug-ins with RTLD_DEEPBIND, and a sanitizer's run time ends the program when it sees that
 * flag. This dlopen() drops the flag, so that the plug-ins run under sanitizers too.
 */
#include <dlfcn.h>

extern "C" __attribute__((visibility("default"))) void* dlopen(const char* file, int mode) {
    static const auto original = reinterpret_cast<decltype(&dlopen)>(dlsym(RTLD_NEXT, "dlopen"));
    return original(file, mode & ~RTLD_DEEPBIND);
}
