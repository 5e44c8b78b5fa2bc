// A file that does not exist is a lost connection.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    listener.report(event, event == eMEDIA_CALLBACK_ERROR && code == 5 ? 1 : code, data);
}
