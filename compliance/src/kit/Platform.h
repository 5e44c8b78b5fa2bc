/** The television's own libraries, loaded as a browser process loads them. */
#ifndef COMPLIANCE_PLATFORM_H
#define COMPLIANCE_PLATFORM_H

#include "hbbtvMsg.h"
#include "media_sync_global.h"
#include "medialib_components.h"
#include "tos_log.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace compliance {

/** A platform function that no library has was called. what() is its name. */
class MissingFunction : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** A function of the platform, called like one; without an address a call throws MissingFunction. */
template <typename Type> class Function {
public:
    void set(const char* name, void* address) {
        m_name = name;
        m_address = reinterpret_cast<Type*>(address);
    }
    template <typename... Arguments> auto operator()(Arguments... arguments) const {
        if (!m_address) {
            throw MissingFunction(m_name);
        }
        return m_address(arguments...);
    }
    bool exists() const { return m_address != nullptr; }

private:
    const char* m_name = "";
    Type* m_address = nullptr;
};

/** Looks each function up in the libraries in the order in which they are given; the first that has it provides it. */
class Platform {
public:
    /** @throws std::runtime_error with the loader's message when a library cannot be loaded */
    void load(const std::vector<std::string>& libraries);

    /** @return names of the functions of a header that no library has */
    std::vector<std::string> missing(const std::string& header) const;

    Function<decltype(Hbbtv_AL_MediaPlayerOpen)> open;
    Function<decltype(Hbbtv_AL_MediaPlayerClose)> close;
    Function<decltype(Hbbtv_AL_MediaPlayerSetUserAgent)> setUserAgent;
    Function<decltype(Hbbtv_AL_MediaPlayerAddCallback)> addCallback;
    Function<decltype(Hbbtv_AL_MediaPlayerRemoveCallback)> removeCallback;
    Function<decltype(Hbbtv_AL_MediaPlayerAddResourceCallback)> addResourceCallback;
    Function<decltype(Hbbtv_AL_MediaPlayerGetPosition)> getPosition;
    Function<decltype(Hbbtv_AL_MediaPlayerGetDuration)> getDuration;
    Function<decltype(Hbbtv_AL_MediaPlayerAddSubtitle)> addSubtitle;
    Function<decltype(Hbbtv_AL_MediaPlayerSetSource)> setSource;
    Function<decltype(Hbbtv_AL_MediaPlayerSetWindow)> setWindow;
    Function<decltype(Hbbtv_AL_MediaPlayerPlay)> play;
    Function<decltype(Hbbtv_AL_MediaPlayerPause)> pause;
    Function<decltype(Hbbtv_AL_MediaPlayerResume)> resume;
    Function<decltype(Hbbtv_AL_MediaPlayerStop)> stop;
    Function<decltype(Hbbtv_AL_MediaPlayerSeek)> seek;
    Function<decltype(Hbbtv_AL_MediaPlayerSetSpeed)> setSpeed;
    Function<decltype(Hbbtv_AL_MediaPlayerGetSpeed)> getSpeed;
    Function<decltype(Hbbtv_AL_MediaPlayerSelectAVVideoComponent)> selectVideo;
    Function<decltype(Hbbtv_AL_MediaPlayerSelectAVAudioComponent)> selectAudio;
    Function<decltype(Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent)> selectSubtitle;
    Function<decltype(Hbbtv_AL_MediaPlayerUnselectAVVideoComponent)> unselectVideo;
    Function<decltype(Hbbtv_AL_MediaPlayerUnselectAVAudioComponent)> unselectAudio;
    Function<decltype(Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent)> unselectSubtitle;
    Function<decltype(Hbbtv_AL_MediaPlayerSelectDefaultAVComponent)> selectDefault;
    Function<decltype(Hbbtv_AL_MediaPlayerUnselectAVComponentByType)> unselectByType;
    Function<decltype(Hbbtv_AL_MediaPlayerGetComponents)> getComponents;
    Function<decltype(log_is_output)> logIsOutput;
    Function<decltype(log_is_outfile)> logIsOutfile;
    Function<decltype(log_get_cmd)> logGetCmd;
    Function<decltype(openCommunicationChannel)> openChannel;
    Function<decltype(adapt_play_state_change)> adaptState;
    Function<decltype(adapt_play_speed_change)> adaptSpeed;
    Function<decltype(adapt_parental_rating_change)> adaptRating;

    // With variable arguments a template cannot pass them on as the caller's compiler would.
    decltype(&tos_log_printfs) logConsole = nullptr;
    decltype(&fpi_log_printf) logFile = nullptr;

private:
    struct Symbol {
        const char* header;
        const char* name;
        void (*bind)(Platform&, const char* name, void* address);
    };
    static const std::vector<Symbol>& symbols();

    std::vector<std::string> m_missing; // "header function"
};

} // namespace compliance

#endif
