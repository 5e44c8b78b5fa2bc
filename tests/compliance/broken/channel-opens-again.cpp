// Each call opens another channel.
#include "Broken.h"

#include <fcntl.h>

BROKEN int openCommunicationChannel(void* options) {
    open("/dev/null", O_RDONLY | O_CLOEXEC);
    return NEXT(openCommunicationChannel)(options);
}
