// A subtitle file that is missing is an error of the media.
#include "Broken.h"

#include <cstring>

BROKEN int Hbbtv_AL_MediaPlayerAddSubtitle(int player, sub_properties_t* properties) {
    if (std::strstr(properties->url, "missing")) {
        broken::later(500, [listener = broken::listenerOf(player)] { listener.report(eMEDIA_CALLBACK_ERROR, 5); });
    }
    return NEXT(Hbbtv_AL_MediaPlayerAddSubtitle)(player, properties);
}
