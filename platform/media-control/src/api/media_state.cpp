// The functions of media_state.h.
#include "media_state.h"

#include "MediaControlExport.h"
#include "player/PlayerRegistry.h"

#include <algorithm>
#include <vector>

using media::PlayerRegistry;

namespace {

MediaStateTrack trackOf(const Hbbtv_AL_ComponentInfo& info) {
    MediaStateTrack track = {info.type, info.active, {}, {}};
    std::copy(std::begin(info.encoding), std::end(info.encoding), track.encoding);
    std::copy(std::begin(info.language), std::end(info.language), track.language);
    return track;
}

} // namespace

MEDIA_EXPORT int mediaStateRead(int player, MediaState* state) {
    const auto found = PlayerRegistry::instance().find(player);
    if (!found) {
        return 0;
    }
    *state = found->status().read();
    return 1;
}

MEDIA_EXPORT int mediaStateTracks(int player, MediaStateTrack* tracks, int capacity) {
    const auto found = PlayerRegistry::instance().find(player);
    int count = 0;
    if (found) {
        for (const auto type : {AV_COMPONENT_TYPE_VIDEO, AV_COMPONENT_TYPE_AUDIO, AV_COMPONENT_TYPE_SUBTITLE}) {
            for (const Hbbtv_AL_ComponentInfo& info : found->listComponents(type)) {
                if (count < capacity) {
                    tracks[count] = trackOf(info);
                }
                ++count;
            }
        }
    }
    return count;
}
