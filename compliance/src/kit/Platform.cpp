#include "kit/Platform.h"

#include <dlfcn.h>

namespace compliance {
namespace {

void* find(const std::vector<void*>& libraries, const char* name) {
    for (void* library : libraries) {
        if (void* address = dlsym(library, name)) {
            return address;
        }
    }
    return nullptr;
}

} // namespace

#define MEDIALIB(field, function)                                                                                      \
    {                                                                                                                  \
        "medialib.h", "Hbbtv_AL_MediaPlayer" #function,                                                                \
            [](Platform& platform, const char* name, void* address) { platform.field.set(name, address); }             \
    }
#define OTHER(header, field, function)                                                                                 \
    {                                                                                                                  \
        header, #function,                                                                                             \
            [](Platform& platform, const char* name, void* address) { platform.field.set(name, address); }             \
    }

const std::vector<Platform::Symbol>& Platform::symbols() {
    static const std::vector<Symbol> table = {
        MEDIALIB(open, Open),
        MEDIALIB(close, Close),
        MEDIALIB(setUserAgent, SetUserAgent),
        MEDIALIB(addCallback, AddCallback),
        MEDIALIB(removeCallback, RemoveCallback),
        MEDIALIB(addResourceCallback, AddResourceCallback),
        MEDIALIB(getPosition, GetPosition),
        MEDIALIB(getDuration, GetDuration),
        MEDIALIB(addSubtitle, AddSubtitle),
        MEDIALIB(setSource, SetSource),
        MEDIALIB(setWindow, SetWindow),
        MEDIALIB(play, Play),
        MEDIALIB(pause, Pause),
        MEDIALIB(resume, Resume),
        MEDIALIB(stop, Stop),
        MEDIALIB(seek, Seek),
        MEDIALIB(setSpeed, SetSpeed),
        MEDIALIB(getSpeed, GetSpeed),
        MEDIALIB(selectVideo, SelectAVVideoComponent),
        MEDIALIB(selectAudio, SelectAVAudioComponent),
        MEDIALIB(selectSubtitle, SelectAVSubtitleComponent),
        MEDIALIB(unselectVideo, UnselectAVVideoComponent),
        MEDIALIB(unselectAudio, UnselectAVAudioComponent),
        MEDIALIB(unselectSubtitle, UnselectAVSubtitleComponent),
        MEDIALIB(selectDefault, SelectDefaultAVComponent),
        MEDIALIB(unselectByType, UnselectAVComponentByType),
        OTHER("medialib_components.h", getComponents, Hbbtv_AL_MediaPlayerGetComponents),
        OTHER("tos_log.h", logIsOutput, log_is_output),
        OTHER("tos_log.h", logIsOutfile, log_is_outfile),
        OTHER("tos_log.h", logGetCmd, log_get_cmd),
        {"tos_log.h", "tos_log_printfs",
         [](Platform& platform, const char*, void* address) {
             platform.logConsole = reinterpret_cast<decltype(&tos_log_printfs)>(address);
         }},
        {"tos_log.h", "fpi_log_printf",
         [](Platform& platform, const char*, void* address) {
             platform.logFile = reinterpret_cast<decltype(&fpi_log_printf)>(address);
         }},
        OTHER("hbbtvMsg.h", openChannel, openCommunicationChannel),
        OTHER("media_sync_global.h", adaptState, adapt_play_state_change),
        OTHER("media_sync_global.h", adaptSpeed, adapt_play_speed_change),
        OTHER("media_sync_global.h", adaptRating, adapt_parental_rating_change)};
    return table;
}

void Platform::load(const std::vector<std::string>& libraries) {
    std::vector<void*> handles;
    for (const std::string& library : libraries) {
        void* handle = dlopen(library.c_str(), RTLD_NOW | RTLD_GLOBAL);
        if (!handle) {
            throw std::runtime_error(dlerror());
        }
        handles.push_back(handle);
    }
    for (const Symbol& symbol : symbols()) {
        void* address = find(handles, symbol.name);
        symbol.bind(*this, symbol.name, address);
        if (!address) {
            m_missing.push_back(std::string(symbol.header) + ' ' + symbol.name);
        }
    }
}

std::vector<std::string> Platform::missing(const std::string& header) const {
    std::vector<std::string> found;
    for (const std::string& symbol : m_missing) {
        if (symbol.compare(0, header.size() + 1, header + ' ') == 0) {
            found.push_back(symbol.substr(header.size() + 1));
        }
    }
    return found;
}

} // namespace compliance
