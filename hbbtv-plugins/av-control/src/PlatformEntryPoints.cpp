// Where the platform reaches the plug-in outside the script interface.
#include "Internals.h"
#include "Log.h"

void regMediaPlayerResourceCallback() {
    if (Hbbtv_AL_MediaPlayerAddResourceCallback() == 1) {
        LOG(" qmr--->add Hbbtv_AL_MediaPlayerAddResourceCallback SUCCESS\n\n");
    } else {
        LOG(" qmr--->add Hbbtv_AL_MediaPlayerAddResourceCallback failed\n\n");
    }
}

void videoInstanceCleanerFunction(void* /*objectHandle*/) {
    LOG("!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!\n");
    LOG("!!!videoInstanceCleanerFunction called!!!\n");
    LOG("!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!\n");
}

int videoControlHandleNotify(void* cb_arguments, int handle) {
    const cbArguments* arguments = static_cast<const cbArguments*>(cb_arguments);
    if (arguments && arguments->objectHandler) {
        static_cast<VideoPlugin*>(arguments->objectHandler)->SetMsgHandler(handle);
    } else {
        LOG_ERROR("Message channel handle %d names no instance: it is dropped\n", handle);
    }
    return 0;
}

int VideoPlugin::unregisterMsgClient() {
    return 1;
}
