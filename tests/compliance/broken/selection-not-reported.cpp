// A change of component is made and not reported.
#include "Broken.h"

void broken::alterReport(const Listener& listener, eMEDIA_CALLBACK_EVENT event, int code, void* data) {
    if (event != eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED || code != AV_COMPONENT_TYPE_SUBTITLE) {
        listener.report(event, code, data);
    }
}
