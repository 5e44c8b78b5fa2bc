#include "fake_player.h"

#include "fake_browser.h"
#include "hbbtvMsg.h"
#include "journal.h"
#include "media_sync_global.h"
#include "points.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>

namespace fake {
namespace {

std::mutex journalMutex;
std::string entries;

template <class... Arguments> int command(const std::string& name, int player, const Arguments&... arguments) {
    const NumberPoint point(name.c_str());
    EXPECT_EQ(browser().pluginThread, std::this_thread::get_id()) << name;
    EXPECT_TRUE(player == -1 || television().players.count(player)) << name << " of a player that is not open";
    if (!television().quiet.count(name)) {
        std::string list;
        ((list += (list.empty() ? "" : ",") + text(Value(arguments))), ...);
        note(std::to_string(player) + "." + name + "(" + list + ")");
    }
    // Transport commands fail with 0 only, so success is not 1.
    return point.answer(player != -1 && !television().refused.count(name) ? 2 : 0);
}

} // namespace

void note(const std::string& entry) {
    const std::lock_guard<std::mutex> lock(journalMutex);
    entries += (entries.empty() ? "" : " ") + entry;
}

std::string happened() {
    const std::lock_guard<std::mutex> lock(journalMutex);
    std::string all;
    all.swap(entries);
    return all;
}

Television& television() {
    static Television instance;
    return instance;
}

void Television::report(int handle, int event, int code, void* block) {
    const Player player = players.at(handle);
    std::thread([=] {
        player.callback(static_cast<unsigned>(handle), static_cast<eMEDIA_CALLBACK_EVENT>(event), code, block,
                        player.userData);
    }).join();
}

} // namespace fake

using fake::command;
using fake::television;

#define COMMAND(name)                                                                                                  \
    int Hbbtv_AL_MediaPlayer##name(int player) {                                                                       \
        return command(#name, player);                                                                                 \
    }
#define COMMAND_WITH(name, Type)                                                                                       \
    int Hbbtv_AL_MediaPlayer##name(int player, Type argument) {                                                        \
        return command(#name, player, argument);                                                                       \
    }
#define COMPONENT_COMMAND(name, Type)                                                                                  \
    int Hbbtv_AL_MediaPlayer##name(int player, Type component) {                                                       \
        television().component = component;                                                                            \
        return command(#name, player);                                                                                 \
    }

extern "C" {

COMMAND(SetUserAgent)
COMMAND(Pause)
COMMAND(Resume)
COMMAND_WITH(SetSource, const char*)
COMMAND_WITH(Play, int)
COMMAND_WITH(Seek, int)
COMMAND_WITH(SetSpeed, double)
COMMAND_WITH(SelectDefaultAVComponent, int)
COMMAND_WITH(UnselectAVComponentByType, int)
COMPONENT_COMMAND(SelectAVVideoComponent, AVVideoComponent*)
COMPONENT_COMMAND(SelectAVAudioComponent, AVAudioComponent*)
COMPONENT_COMMAND(SelectAVSubtitleComponent, AVSubtitleComponent*)
COMPONENT_COMMAND(UnselectAVVideoComponent, AVVideoComponent*)
COMPONENT_COMMAND(UnselectAVAudioComponent, AVAudioComponent*)
COMPONENT_COMMAND(UnselectAVSubtitleComponent, AVSubtitleComponent*)

int Hbbtv_AL_MediaPlayerOpen(int* player) {
    const fake::NumberPoint point("Open");
    EXPECT_EQ(-1, *player) << "left as it is when no player can be had";
    if (television().opens && !point.odd()) {
        *player = television().nextHandle++;
        television().players[*player] = {};
        command("Open", *player);
    }
    return point.answer(0);
}

int Hbbtv_AL_MediaPlayerClose(int player) {
    command("Close", player);
    EXPECT_FALSE(television().players[player].callback) << "closed with its callback";
    return static_cast<int>(television().players.erase(player));
}

int Hbbtv_AL_MediaPlayerAddCallback(int player, Hbbtv_AL_MediaPlayerCallback callback, void* userData) {
    if (player != -1) {
        television().players[player] = {callback, userData};
    }
    return command("AddCallback", player);
}

int Hbbtv_AL_MediaPlayerRemoveCallback(int player) {
    television().players[player] = {};
    return command("RemoveCallback", player);
}

int Hbbtv_AL_MediaPlayerStop(int player) {
    const int result = command("Stop", player);
    if (television().duringStop) {
        television().duringStop();
    }
    return result;
}

int Hbbtv_AL_MediaPlayerSetWindow(int player, int x, int y, int width, int height) {
    return command("SetWindow", player, x, y, width, height) ? 1 : 2; // succeeds with 1 only
}

int Hbbtv_AL_MediaPlayerAddSubtitle(int player, sub_properties_t* properties) {
    television().subtitle = *properties;
    return command("AddSubtitle", player);
}

int Hbbtv_AL_MediaPlayerAddResourceCallback(void) {
    return television().refused.count("AddResourceCallback") ? 2 : 1;
}

int64_t Hbbtv_AL_MediaPlayerGetPosition(int) {
    const fake::NumberPoint point("GetPosition");
    return point.answer(television().position);
}

int Hbbtv_AL_MediaPlayerGetDuration(int) {
    const fake::NumberPoint point("GetDuration");
    return point.answer(television().duration);
}

int Hbbtv_AL_MediaPlayerGetSpeed(int) {
    const fake::NumberPoint point("GetSpeed");
    return point.answer(television().speedInForce);
}

int openCommunicationChannel(void* options) {
    const fake::NumberPoint point("openCommunicationChannel");
    fake::note(options ? "channel(options)" : "channel(null)");
    return point.answer(-1);
}

int adapt_play_state_change(int player, int mediaType, int state) {
    return command("sync.state", player, mediaType, state);
}

int adapt_play_speed_change(int player, float speed) {
    return command("sync.speed", player, static_cast<double>(speed));
}

int adapt_parental_rating_change(int player, int blocked) {
    return command("sync.rating", player, blocked);
}
}
