// A television's libraries as small as the plug-in allows: one player that plays whatever it is given. The contracts
// are in medialib.h, tos_log.h, hbbtvMsg.h and media_sync_global.h.
#include "platform.h"

#include "hbbtvMsg.h"
#include "media_sync_global.h"
#include "medialib.h"
#include "tos_log.h"

#include <cstdio>

namespace {

constexpr int onlyPlayer = 1;
Hbbtv_AL_MediaPlayerCallback reportTo = nullptr;
void* reportData = nullptr;

int command(const char* name) {
    std::printf("player: %s\n", name);
    return 1;
}

} // namespace

void reportPlaying() {
    if (reportTo) {
        reportTo(onlyPlayer, eMEDIA_CALLBACK_PLAYING, 0, nullptr, reportData);
    }
}

extern "C" {

int Hbbtv_AL_MediaPlayerOpen(int* player) {
    *player = onlyPlayer;
    return command("Open");
}

int Hbbtv_AL_MediaPlayerClose(int /*player*/) {
    return command("Close");
}

int Hbbtv_AL_MediaPlayerSetUserAgent(int /*player*/) {
    return command("SetUserAgent");
}

int Hbbtv_AL_MediaPlayerAddCallback(int /*player*/, Hbbtv_AL_MediaPlayerCallback callback, void* userData) {
    reportTo = callback;
    reportData = userData;
    return 1;
}

int Hbbtv_AL_MediaPlayerRemoveCallback(int /*player*/) {
    reportTo = nullptr;
    return 1;
}

int Hbbtv_AL_MediaPlayerAddResourceCallback() {
    return 1;
}

int64_t Hbbtv_AL_MediaPlayerGetPosition(int /*player*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerGetDuration(int /*player*/) {
    return 60000;
}

int Hbbtv_AL_MediaPlayerAddSubtitle(int /*player*/, sub_properties_t* /*properties*/) {
    return command("AddSubtitle");
}

int Hbbtv_AL_MediaPlayerSetSource(int /*player*/, const char* url) {
    std::printf("player: SetSource %s\n", url);
    return 1;
}

int Hbbtv_AL_MediaPlayerSetWindow(int /*player*/, int /*x*/, int /*y*/, int /*width*/, int /*height*/) {
    return command("SetWindow");
}

int Hbbtv_AL_MediaPlayerPlay(int /*player*/, int /*mode*/) {
    return command("Play");
}

int Hbbtv_AL_MediaPlayerPause(int /*player*/) {
    return command("Pause");
}

int Hbbtv_AL_MediaPlayerResume(int /*player*/) {
    return command("Resume");
}

int Hbbtv_AL_MediaPlayerStop(int /*player*/) {
    return command("Stop");
}

int Hbbtv_AL_MediaPlayerSeek(int /*player*/, int /*ms*/) {
    return command("Seek");
}

int Hbbtv_AL_MediaPlayerSetSpeed(int /*player*/, double /*speed*/) {
    return command("SetSpeed");
}

int Hbbtv_AL_MediaPlayerGetSpeed(int /*player*/) {
    return 1;
}

int Hbbtv_AL_MediaPlayerSelectAVVideoComponent(int /*player*/, AVVideoComponent* /*component*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerSelectAVAudioComponent(int /*player*/, AVAudioComponent* /*component*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(int /*player*/, AVSubtitleComponent* /*component*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerUnselectAVVideoComponent(int /*player*/, AVVideoComponent* /*component*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerUnselectAVAudioComponent(int /*player*/, AVAudioComponent* /*component*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent(int /*player*/, AVSubtitleComponent* /*component*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(int /*player*/, int /*type*/) {
    return 0;
}

int Hbbtv_AL_MediaPlayerUnselectAVComponentByType(int /*player*/, int /*type*/) {
    return 0;
}

int log_is_output(int /*module*/, int /*level*/) {
    return 0;
}

int log_is_outfile(int /*module*/, int /*level*/) {
    return 0;
}

const char* log_get_cmd(int /*module*/) {
    return "avcontrol";
}

int tos_log_printfs(const char* /*process*/, const char* /*cmd*/, int /*level*/, const char* /*format*/, ...) {
    return 0;
}

int fpi_log_printf(const char* /*cmd*/, int /*level*/, const char* /*format*/, ...) {
    return 0;
}

int openCommunicationChannel(void* /*argument*/) {
    return 0;
}

int adapt_play_state_change(int /*player*/, int /*mediaType*/, int /*state*/) {
    return 0;
}

int adapt_play_speed_change(int /*player*/, float /*speed*/) {
    return 0;
}

int adapt_parental_rating_change(int /*player*/, int /*blocked*/) {
    return 0;
}

} // extern "C"
