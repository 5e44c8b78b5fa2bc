#include "Trace.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace skeleton {

void trace(const char* format, ...) {
    static const bool isWanted = std::getenv("SKELETON_TRACE") != nullptr;
    if (!isWanted) {
        return;
    }
    char line[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    std::fprintf(stderr, "skeleton: %s\n", line);
}

} // namespace skeleton
