// The functions of media_picture.h.
#include "media_picture.h"

#include "MediaControlExport.h"
#include "player/PlayerRegistry.h"
#include "sinks/VideoFrame.h"

using media::PlayerRegistry;

MEDIA_EXPORT void mediaPictureSetCallback(MediaPictureCallback callback, void* userData) {
    media::setVideoObserver(callback, userData);
}

MEDIA_EXPORT int mediaPictureWindows(MediaPictureWindow* windows, int capacity) {
    int count = 0;
    for (const auto& player : PlayerRegistry::instance().all()) {
        if (count < capacity && player->videoOutput().isVisible()) {
            windows[count++] = player->videoOutput().window();
        }
    }
    return count;
}

MEDIA_EXPORT int mediaPictureAcquire(int player, MediaPicture* picture) {
    const auto found = PlayerRegistry::instance().find(player);
    return found && found->videoOutput().acquire(*picture) ? 1 : 0;
}

MEDIA_EXPORT void mediaPictureRelease(MediaPicture* picture) {
    media::releaseFrame(*picture);
}
