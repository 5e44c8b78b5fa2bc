// The data block of a report is a static variable.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* /*data*/) {
    static char block[64] = "details";
    listener.report(event, code, block);
}
