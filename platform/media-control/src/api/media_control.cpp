// The functions of medialib.h: each finds its player, passes the command on and traces it.
#include "MediaControlExport.h"
#include "medialib_components.h"
#include "player/PlayerRegistry.h"
#include "trace/MediaLog.h"
#include "trace/MediaTrace.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <string>
#include <system_error>

namespace {

using media::Player;
using media::PlayerRegistry;

/** What is traced of a command: its function and those arguments that are numbers, at most four. */
MediaTraceCommand traced(MediaTraceFunction function, std::initializer_list<int> numbers = {}) {
    MediaTraceCommand trace{};
    trace.function = function;
    trace.numberCount = static_cast<int>(numbers.size());
    std::copy(numbers.begin(), numbers.end(), trace.numbers);
    return trace;
}

MediaTraceCommand traced(MediaTraceFunction function, const char* url) {
    MediaTraceCommand trace = traced(function);
    trace.url = url;
    return trace;
}

/** Runs a command that answers true or false on an open player and traces it. @return 1 done, 0 refused */
template <typename Command> int command(int player, MediaTraceCommand trace, Command run) {
    const media::TraceOrder order;
    const auto found = PlayerRegistry::instance().find(player);
    trace.result = found && run(*found) ? 1 : 0;
    media::traceCommand(player, trace);
    return trace.result;
}

template <typename Command> int command(int player, MediaTraceFunction function, Command run) {
    return command(player, traced(function), run);
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

MediaTraceCommand tracedWithPid(MediaTraceFunction function, std::optional<int> pid) {
    return pid ? traced(function, {*pid}) : traced(function);
}

int selectComponent(int player, MediaTraceFunction function, AVComponentType type, std::optional<int> pid) {
    return command(player, tracedWithPid(function, pid),
                   [&](Player& found) { return pid && found.select(type, *pid); });
}

int unselectComponent(int player, MediaTraceFunction function, AVComponentType type, std::optional<int> pid) {
    return command(player, tracedWithPid(function, pid),
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
    MediaTraceCommand trace = traced(MEDIA_FUNCTION_OPEN);
    trace.result = 1;
    media::traceCommand(*player, trace);
    return 1;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerClose(int player) {
    MediaTraceCommand trace = traced(MEDIA_FUNCTION_CLOSE);
    trace.result = PlayerRegistry::instance().close(player) ? 1 : 0;
    media::traceCommand(player, trace);
    return trace.result;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetUserAgent(int player) {
    return command(player, MEDIA_FUNCTION_SET_USER_AGENT, [](Player& found) {
        found.useTelevisionUserAgent();
        return true;
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback, void* userData) {
    return command(player, MEDIA_FUNCTION_ADD_CALLBACK, [&](Player& found) {
        found.status().setCallback(callback, userData);
        return true;
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    return command(player, MEDIA_FUNCTION_REMOVE_CALLBACK, [](Player& found) {
        found.status().setCallback(nullptr, nullptr);
        return true;
    });
}

/** A desktop has decoders for every player: there is nothing to report. */
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
    return command(player, traced(MEDIA_FUNCTION_ADD_SUBTITLE, properties->url), [&](Player& found) {
        found.addSubtitle(*properties);
        return true;
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetSource(int player, const char* url) {
    const std::string text = url ? url : "";
    return command(player, traced(MEDIA_FUNCTION_SET_SOURCE, text.c_str()),
                   [&](Player& found) { return found.setSource(text); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetWindow(int player, int x, int y, int width, int height) {
    return command(player, traced(MEDIA_FUNCTION_SET_WINDOW, {x, y, width, height}),
                   [&](Player& found) { return found.setWindow(x, y, width, height); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerPlay(int player, int /*mode*/) {
    return command(player, MEDIA_FUNCTION_PLAY, [](Player& found) { return found.play(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerPause(int player) {
    return command(player, MEDIA_FUNCTION_PAUSE, [](Player& found) { return found.pause(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerResume(int player) {
    return command(player, MEDIA_FUNCTION_RESUME, [](Player& found) { return found.resume(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerStop(int player) {
    return command(player, MEDIA_FUNCTION_STOP, [](Player& found) { return found.stop(); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSeek(int player, int ms) {
    return command(player, traced(MEDIA_FUNCTION_SEEK, {ms}), [ms](Player& found) { return found.seek(ms); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSetSpeed(int player, double speed) {
    // Far beyond any speed that can be had, and safe to convert.
    const int whole = std::isnan(speed) ? 0 : static_cast<int>(std::clamp(speed, -1e6, 1e6));
    return command(player, traced(MEDIA_FUNCTION_SET_SPEED, {whole}),
                   [whole](Player& found) { return found.setSpeed(whole); });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerGetSpeed(int player) {
    const auto found = PlayerRegistry::instance().find(player);
    return found ? found->status().speed() : 0;
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectAVVideoComponent(int player, AVVideoComponent* component) {
    return selectComponent(player, MEDIA_FUNCTION_SELECT_AV_VIDEO_COMPONENT, AV_COMPONENT_TYPE_VIDEO, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectAVAudioComponent(int player, AVAudioComponent* component) {
    return selectComponent(player, MEDIA_FUNCTION_SELECT_AV_AUDIO_COMPONENT, AV_COMPONENT_TYPE_AUDIO, pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(int player, AVSubtitleComponent* component) {
    return selectComponent(player, MEDIA_FUNCTION_SELECT_AV_SUBTITLE_COMPONENT, AV_COMPONENT_TYPE_SUBTITLE,
                           pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVVideoComponent(int player, AVVideoComponent* component) {
    return unselectComponent(player, MEDIA_FUNCTION_UNSELECT_AV_VIDEO_COMPONENT, AV_COMPONENT_TYPE_VIDEO,
                             pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVAudioComponent(int player, AVAudioComponent* component) {
    return unselectComponent(player, MEDIA_FUNCTION_UNSELECT_AV_AUDIO_COMPONENT, AV_COMPONENT_TYPE_AUDIO,
                             pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent(int player, AVSubtitleComponent* component) {
    return unselectComponent(player, MEDIA_FUNCTION_UNSELECT_AV_SUBTITLE_COMPONENT, AV_COMPONENT_TYPE_SUBTITLE,
                             pidOf(component));
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(int player, int type) {
    return command(player, traced(MEDIA_FUNCTION_SELECT_DEFAULT_AV_COMPONENT, {type}), [type](Player& found) {
        const auto valid = validType(type);
        return valid && found.selectDefault(*valid);
    });
}

MEDIA_EXPORT int Hbbtv_AL_MediaPlayerUnselectAVComponentByType(int player, int type) {
    return command(player, traced(MEDIA_FUNCTION_UNSELECT_AV_COMPONENT_BY_TYPE, {type}), [type](Player& found) {
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
