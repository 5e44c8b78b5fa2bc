// A component of a type that does not exist has changed.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    constexpr int NO_TYPE = 7;
    if (event == eMEDIA_CALLBACK_PLAYING) {
        listener.report(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, NO_TYPE);
    }
    listener.report(event, code, data);
}
