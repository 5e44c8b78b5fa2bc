// The functions of medialib.h: each finds its player, hands the command on, and leaves a trace of it.
#include "MediaControlExport.h"
#include "medialib_components.h"
#include "player/PlayerRegistry.h"
#include "trace/MediaLog.h"
#include "trace/MediaTrace.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <system_error>

namespace {

using media::Player;
using media::PlayerRegistry;

/** Runs a command that answers true or false on an open player and traces it. @return 1 done, 0 refused */
template <typename Command> int command(int player, const std::string& text, Command run) {
    const media::TraceOrder order;
    const auto found = PlayerRegistry::instance().find(player);
    const int result = found && run(*found) ? 1 : 0;
    media::traceCommand(player, text, result);
    return result;
}

std::optional<AVComponentType> validType(int type) {
    if (type < AV_COMPONENT_TYPE_VIDEO || type > AV_COMPONENT_TYPE_SUBTITLE) {
        return std::nullopt;
    }
    return static_cast<AVComponentType>(type);
}

/** @param component may be null, and so may its record */
template <typename Component> std::optional<int> pidOf(const Component* component) {
    return component && component->avComponent ? std::optional<int>(component->avComponent->pid) : std::nullopt;
}

int selectComponent(int player, const char* name, AVComponentType type, std::optional<int> pid) {
    return command(player, std::string(name) + " pid " + (pid ? std::to_string(*pid) : "none"),
                   [&](Player& found) { return pid && found.select(type, *pid); });
}

int unselectComponent(int player, const char* name, AVComponentType type, std::optional<int> pid) {
    return command(player, std::string(name) + " pid " + (pid ? std::to_string(*pid) : "none"),
                   [&](Player& found) { return pid && found.unselect(type, pid); });
}

} // namespace

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerOpen(int* player) {
    try {
        *player = PlayerRegistry::instance().open();
    } catch (const std::system_error& error) {
        MEDIA_LOG_ERROR(std::string("no thread for another player: ") + error.what());
        return 0;
    }
    media::traceCommand(*player, "Open", 1);
    return 1;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerClose(int player) {
    const int result = PlayerRegistry::instance().close(player) ? 1 : 0;
    media::traceCommand(player, "Close", result);
    return result;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetUserAgent(int player) {
    return command(player, "SetUserAgent", [](Player& found) {
        found.useTelevisionUserAgent();
        return true;
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback, void* userData) {
    return command(player, "AddCallback", [&](Player& found) {
        found.status().setCallback(callback, userData);
        return true;
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    return command(player, "RemoveCallback", [](Player& found) {
        found.status().setCallback(nullptr, nullptr);
        return true;
    });
}

/** A desktop has decoders for everybody: there is nothing to be told of. */
MEDIA_EXPORT int Hbbtv_AL_MediaPlayerAddResourceCallback(void) {
    return 1;
}

MEDIA_EXPORT int64_t Hbbtv_AL_MediaPlayerGetPosition(int player) {
    const auto found = PlayerRegistry::instance().find(player);
    return found ? found->status().position() : -1;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerGetDuration(int player) {
    const auto found = PlayerRegistry::instance().find(player);
    return found ? found->status().duration() : -1;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerAddSubtitle(int player, sub_properties_t* properties) {
    if (properties->url[0] == '\0') {
        return 0;
    }
    return command(player, std::string("AddSubtitle ") + properties->url, [&](Player& found) {
        found.addSubtitle(*properties);
        return true;
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetSource(int player, const char* url) {
    const std::string text = url ? url : "";
    return command(player, "SetSource " + text, [&](Player& found) { return found.setSource(text); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetWindow(int player, int x, int y, int width, int height) {
    const std::string text = "SetWindow " + std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) +
                             "x" + std::to_string(height);
    return command(player, text, [&](Player& found) { return found.setWindow(x, y, width, height); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerPlay(int player, int /*mode*/) {
    return command(player, "Play", [](Player& found) { return found.play(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerPause(int player) {
    return command(player, "Pause", [](Player& found) { return found.pause(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerResume(int player) {
    return command(player, "Resume", [](Player& found) { return found.resume(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerStop(int player) {
    return command(player, "Stop", [](Player& found) { return found.stop(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSeek(int player, int ms) {
    return command(player, "Seek " + std::to_string(ms), [ms](Player& found) { return found.seek(ms); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetSpeed(int player, double speed) {
    // Far beyond any speed that can be had, and safe to convert.
    const int whole = std::isnan(speed) ? 0 : static_cast<int>(std::clamp(speed, -1e6, 1e6));
    return command(player, "SetSpeed " + std::to_string(whole),
                   [whole](Player& found) { return found.setSpeed(whole); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerGetSpeed(int player) {
    const auto found = PlayerRegistry::instance().find(player);
    return found ? found->status().speed() : 0;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectAVVideoComponent(int player, AVVideoComponent* component) {
    return selectComponent(player, "SelectAVVideoComponent", AV_COMPONENT_TYPE_VIDEO, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectAVAudioComponent(int player, AVAudioComponent* component) {
    return selectComponent(player, "SelectAVAudioComponent", AV_COMPONENT_TYPE_AUDIO, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(int player, AVSubtitleComponent* component) {
    return selectComponent(player, "SelectAVSubtitleComponent", AV_COMPONENT_TYPE_SUBTITLE, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVVideoComponent(int player, AVVideoComponent* component) {
    return unselectComponent(player, "UnselectAVVideoComponent", AV_COMPONENT_TYPE_VIDEO, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVAudioComponent(int player, AVAudioComponent* component) {
    return unselectComponent(player, "UnselectAVAudioComponent", AV_COMPONENT_TYPE_AUDIO, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent(int player, AVSubtitleComponent* component) {
    return unselectComponent(player, "UnselectAVSubtitleComponent", AV_COMPONENT_TYPE_SUBTITLE, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(int player, int type) {
    return command(player, "SelectDefaultAVComponent " + std::to_string(type), [type](Player& found) {
        const auto valid = validType(type);
        return valid && found.selectDefault(*valid);
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVComponentByType(int player, int type) {
    return command(player, "UnselectAVComponentByType " + std::to_string(type), [type](Player& found) {
        const auto valid = validType(type);
        return valid && found.unselect(*valid, std::nullopt);
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerGetComponents(int player, int type, Hbbtv_AL_ComponentInfo* components,
                                                   int capacity) {
    const auto found = PlayerRegistry::instance().find(player);
    const auto valid = validType(type);
    if (!found || !valid) {
        return 0;
    }
    const auto list = found->listComponents(*valid);
    std::copy_n(list.begin(), std::clamp<size_t>(static_cast<size_t>(std::max(0, capacity)), 0, list.size()),
                components);
    return static_cast<int>(list.size());
}
