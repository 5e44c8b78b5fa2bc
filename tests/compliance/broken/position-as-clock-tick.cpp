// POSITION_CHANGED is reported without a seek.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    constexpr int TICKS = 20;
    for (int i = 0; event == eMEDIA_CALLBACK_PLAYING && i < TICKS; ++i) {
        listener.report(eMEDIA_CALLBACK_POSITION_CHANGED);
    }
    listener.report(event, code, data);
}
