// Desktop implementation of the media-synchronisation adapter: there is no companion screen, so it drops the reports.
#include "media_sync_global.h"

#define MEDIA_SYNC_EXPORT __attribute__((visibility("default")))

MEDIA_SYNC_EXPORT int adapt_play_state_change(int /*player*/, int /*mediaType*/, int /*state*/) {
    return 0;
}

MEDIA_SYNC_EXPORT int adapt_play_speed_change(int /*player*/, float /*speed*/) {
    return 0;
}

MEDIA_SYNC_EXPORT int adapt_parental_rating_change(int /*player*/, int /*blocked*/) {
    return 0;
}
