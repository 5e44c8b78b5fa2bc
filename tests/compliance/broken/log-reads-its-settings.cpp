// Each question to the log reads a file.
#include "Broken.h"

#include <fcntl.h>
#include <unistd.h>

BROKEN int log_is_output(int module, int level) {
    char byte = 0;
    const int file = open("/proc/self/comm", O_RDONLY | O_CLOEXEC);
    if (read(file, &byte, 1) < 0) {
        return 0;
    }
    close(file);
    return NEXT(log_is_output)(module, level);
}
