// An error is followed by BUFFERING.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    listener.report(event, code, data);
    if (event == eMEDIA_CALLBACK_ERROR) {
        listener.report(eMEDIA_CALLBACK_BUFFERING);
    }
}
