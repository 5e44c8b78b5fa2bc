// Reports carry another number than the player's handle.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    Listener other = listener;
    other.player += 1000;
    other.report(event, code, data);
}
