// The part of the picture interface that names players.
#include "media_picture.h"

#include "MediaControlExport.h"
#include "player/PlayerRegistry.h"

using media::PlayerRegistry;

MEDIA_EXPORT int mediaPictureWindows(MediaPictureWindow* windows, int capacity) {
    int count = 0;
    for (const auto& player : PlayerRegistry::instance().all()) {
        if (count < capacity && player->picture().isVisible()) {
            windows[count++] = player->picture().window();
        }
    }
    return count;
}

MEDIA_EXPORT int mediaPictureAcquire(int player, MediaPicture* picture) {
    const auto found = PlayerRegistry::instance().find(player);
    return found && found->picture().acquire(*picture) ? 1 : 0;
}
