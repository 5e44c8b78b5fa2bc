// The data block of a report is a local variable.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* /*data*/) {
    char block[64] = "details";
    listener.report(event, code, block);
}
