// medialib.h and medialib_components.h: a player that can be opened and plays nothing. Each function logs its call and
// does the least that its contract allows; what it does not do yet, it refuses.
#include "Players.h"
#include "Trace.h"
#include "medialib_components.h"

using skeleton::findPlayer;
using skeleton::trace;

namespace {

constexpr int DONE = 1;
constexpr int REFUSED = 0;

/** Logs a command for which there is no player behind yet. */
int refuse(const char* command, int player) {
    trace("%s(%d): refused", command, player);
    return REFUSED;
}

int done(const char* command, int player) {
    const bool isOpen = findPlayer(player) != nullptr;
    trace("%s(%d): %s", command, player, isOpen ? "done" : "refused, the handle is not open");
    return isOpen ? DONE : REFUSED;
}

} // namespace

PLATFORM int Hbbtv_AL_MediaPlayerOpen(int* player) {
    *player = skeleton::openPlayer();
    trace("Open: %d", *player);
    return DONE;
}

PLATFORM int Hbbtv_AL_MediaPlayerClose(int player) {
    trace("Close(%d)", player);
    return skeleton::closePlayer(player) ? DONE : REFUSED;
}

PLATFORM int Hbbtv_AL_MediaPlayerSetUserAgent(int player) {
    return done("SetUserAgent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback, void* userData) {
    if (const auto found = findPlayer(player)) {
        found->callback = callback;
        found->userData = userData;
    }
    return done("AddCallback", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    if (const auto found = findPlayer(player)) {
        found->callback = nullptr; // and wait here for a report that is under way
    }
    return done("RemoveCallback", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerAddResourceCallback(void) {
    trace("AddResourceCallback");
    return DONE;
}

PLATFORM int64_t Hbbtv_AL_MediaPlayerGetPosition(int player) {
    trace("GetPosition(%d): none", player);
    return -1;
}

PLATFORM int Hbbtv_AL_MediaPlayerGetDuration(int player) {
    trace("GetDuration(%d): no media", player);
    return -1;
}

PLATFORM int Hbbtv_AL_MediaPlayerAddSubtitle(int player, sub_properties_t* properties) {
    trace("AddSubtitle(%d, %s)", player, properties->url);
    return REFUSED;
}

PLATFORM int Hbbtv_AL_MediaPlayerSetSource(int player, const char* url) {
    trace("SetSource(%d, %s)", player, url);
    const auto found = findPlayer(player);
    if (!found) {
        return REFUSED;
    }
    found->source = url;
    return DONE;
}

PLATFORM int Hbbtv_AL_MediaPlayerSetWindow(int player, int x, int y, int width, int height) {
    trace("SetWindow(%d, %d, %d, %d, %d)", player, x, y, width, height);
    return findPlayer(player) ? DONE : REFUSED;
}

/** Refused, the object goes to its error state. With a player: start it, return 1, and report from its thread. */
PLATFORM int Hbbtv_AL_MediaPlayerPlay(int player, int /*mode*/) {
    return refuse("Play", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerPause(int player) {
    return refuse("Pause", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerResume(int player) {
    return refuse("Resume", player);
}

/** A player that is stopped already agrees. */
PLATFORM int Hbbtv_AL_MediaPlayerStop(int player) {
    return done("Stop", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerSeek(int player, int ms) {
    trace("Seek(%d, %d): refused", player, ms);
    return REFUSED;
}

PLATFORM int Hbbtv_AL_MediaPlayerSetSpeed(int player, double speed) {
    trace("SetSpeed(%d, %g): refused", player, speed);
    return REFUSED;
}

PLATFORM int Hbbtv_AL_MediaPlayerGetSpeed(int player) {
    trace("GetSpeed(%d): 0", player);
    return 0;
}

PLATFORM int Hbbtv_AL_MediaPlayerSelectAVVideoComponent(int player, AVVideoComponent* /*component*/) {
    return refuse("SelectAVVideoComponent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerSelectAVAudioComponent(int player, AVAudioComponent* /*component*/) {
    return refuse("SelectAVAudioComponent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerSelectAVSubtitleComponent(int player, AVSubtitleComponent* /*component*/) {
    return refuse("SelectAVSubtitleComponent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerUnselectAVVideoComponent(int player, AVVideoComponent* /*component*/) {
    return refuse("UnselectAVVideoComponent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerUnselectAVAudioComponent(int player, AVAudioComponent* /*component*/) {
    return refuse("UnselectAVAudioComponent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerUnselectAVSubtitleComponent(int player, AVSubtitleComponent* /*component*/) {
    return refuse("UnselectAVSubtitleComponent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerSelectDefaultAVComponent(int player, int /*type*/) {
    return refuse("SelectDefaultAVComponent", player);
}

PLATFORM int Hbbtv_AL_MediaPlayerUnselectAVComponentByType(int player, int /*type*/) {
    return refuse("UnselectAVComponentByType", player);
}

/** There is no media, and so nothing in it. */
PLATFORM int Hbbtv_AL_MediaPlayerGetComponents(int player, int type, Hbbtv_AL_ComponentInfo* /*components*/,
                                               int /*capacity*/) {
    trace("GetComponents(%d, %d): none", player, type);
    return 0;
}
