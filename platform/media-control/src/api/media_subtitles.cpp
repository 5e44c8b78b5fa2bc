// The function of media_subtitles.h.
#include "media_subtitles.h"

#include "MediaControlExport.h"
#include "player/PlayerRegistry.h"

#include <cstring>

MEDIA_EXPORT char* mediaSubtitlesAt(int player, int64_t timeMs) {
    const auto found = media::PlayerRegistry::instance().find(player);
    const std::string text = found ? found->subtitles().textAt(timeMs) : "";
    return text.empty() ? nullptr : strdup(text.c_str());
}
