// Desktop implementation of the television's message channel: there is only one process, so it does nothing.
#include "hbbtvMsg.h"

__attribute__((visibility("default"))) int openCommunicationChannel(void* /*options*/) {
    return 0;
}
