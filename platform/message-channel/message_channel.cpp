// Desktop stand-in for the television's message channel: one process, nobody to talk to.
#include "hbbtvMsg.h"

__attribute__((visibility("default"))) int openCommunicationChannel(void* /*options*/) {
    return 0;
}
