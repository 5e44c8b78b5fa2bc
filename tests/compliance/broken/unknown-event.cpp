// A report of an event that does not exist.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    if (event == eMEDIA_CALLBACK_PLAYING) {
        listener.report(eMEDIA_CALLBACK_MAX);
    }
    listener.report(event, code, data);
}
