// Callbacks that block, that call back, that are removed or replaced.
#include "checks/Checks.h"
#include "kit/DataBlock.h"
#include "kit/TestedPlayer.h"

#include <atomic>

namespace compliance {
namespace {

/** Holds the first report inside the callback until it is let go. */
class HeldReport {
public:
    explicit HeldReport(TestedPlayer& player) {
        player.onReport([state = m_state](eMEDIA_CALLBACK_EVENT) {
            while (!state->letGo && !isOwnThread()) {
                state->isInside = true;
                std::this_thread::sleep_for(milliseconds(5));
            }
            state->isInside = false;
        });
    }
    ~HeldReport() { letGo(); }
    void letGo() { m_state->letGo = true; }
    bool isInside() const { return m_state->isInside; }

private:
    struct State {
        std::atomic<bool> letGo{false};
        std::atomic<bool> isInside{false};
    };
    const std::shared_ptr<State> m_state = std::make_shared<State>(); // the callback may outlive this object
};

/** Starts, and waits until a report is held. */
void startHeld(Trial& trial, TestedPlayer& player, const HeldReport& held) {
    player.start(trial.server.url(media::FILM));
    trial.require(trial.comesToHold([&] { return held.isInside(); }), "no report came after Play", "a report");
}

void reportHoldsNoLock(Trial& trial) {
    TestedPlayer player(trial);
    HeldReport held(player);
    startHeld(trial, player, held);
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"GetPosition", [&] { player.position(); }},
        {"GetDuration", [&] { player.duration(); }},
        {"GetSpeed", [&] { player.speed(); }},
        {"SetWindow", [&] { player.setWindow(10, 10, 160, 90); }},
        {"Seek", [&] { player.seek(5000); }},
        {"Pause", [&] { player.pause(); }},
        {"Resume", [&] { player.resume(); }},
        {"Stop", [&] { player.stop(); }},
        {"Open and Close", [&] { TestedPlayer other(trial); }},
    };
    for (const auto& [name, call] : calls) {
        const bool inTime = trial.returnsInTime(call, [&] { held.letGo(); });
        trial.require(inTime, std::string(name) + " did not return while a report was under way",
                      "a return without waiting for the callback");
    }
}

/** Uses nothing of the player's object: a report may still be under way when that is gone. */
void callsFromReport(Trial& trial) {
    const auto hasPaused = std::make_shared<std::atomic<bool>>(false);
    TestedPlayer player(trial);
    player.onReport([&platform = trial.platform, handle = player.handle(), hasPaused](eMEDIA_CALLBACK_EVENT event) {
        platform.getPosition(handle);
        platform.getDuration(handle);
        platform.getSpeed(handle);
        platform.setWindow(handle, 0, 0, 320, 180);
        if (event == eMEDIA_CALLBACK_PLAYING && !hasPaused->exchange(true)) {
            platform.pause(handle);
            platform.resume(handle);
        }
    });
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(200);
}

void removeWaits(Trial& trial) {
    TestedPlayer player(trial);
    HeldReport held(player);
    startHeld(trial, player, held);
    std::atomic<bool> hasReturned{false};
    bool wasInside = false;
    std::thread remover([&] {
        isOwnThread() = true;
        player.removeCallback();
        wasInside = held.isInside();
        hasReturned = true;
    });
    trial.wait(milliseconds(300)); // time enough for one that does not wait
    held.letGo();
    const bool returned = trial.comesToHold([&] { return hasReturned.load(); });
    remover.join();
    trial.require(returned && !wasInside, "RemoveCallback returned while a report was under way",
                  "a return when the callback has returned");
}

void laterCallbackReplaces(Trial& trial) {
    static std::atomic<int> received;
    received = 0;
    TestedPlayer player(trial);
    trial.platform.addCallback(
        player.handle(),
        [](unsigned int, eMEDIA_CALLBACK_EVENT, int, void* data, void*) {
            takeDataBlock(data);
            ++received;
        },
        static_cast<void*>(nullptr));
    player.start(trial.server.url(media::SHORT));
    trial.require(trial.comesToHold([] { return received > 1; }), "the second callback got no report",
                  "all reports at the callback that was set last");
    trial.require(!player.hasReport(eMEDIA_CALLBACK_CONNECTING) && !player.hasReport(eMEDIA_CALLBACK_PLAYING),
                  "the first callback got a report after the second was set: " + player.story(),
                  "all reports at the callback that was set last");
}

void severalPlayers(Trial& trial) {
    std::vector<std::unique_ptr<TestedPlayer>> players;
    for (int i = 0; i < trial.profile.players; ++i) {
        players.push_back(std::make_unique<TestedPlayer>(trial));
        players.back()->start(trial.server.url(media::FILM));
    }
    for (const auto& player : players) {
        player->await(eMEDIA_CALLBACK_PLAYING, "for each of " + std::to_string(players.size()) + " players");
    }
    for (const auto& player : players) {
        player->awaitPosition(player->position() + 200);
    }
    TestedPlayer& first = *players.front();
    TestedPlayer& last = *players.back();
    first.pause();
    first.await(eMEDIA_CALLBACK_PAUSED, "for the one that was paused");
    trial.require(!last.hasReport(eMEDIA_CALLBACK_PAUSED), "another player reported PAUSED: " + last.story(),
                  "no report at the other player");
    last.awaitPosition(last.position() + 200);
}

} // namespace

std::vector<Check> callbackChecks() {
    const char* const header = "medialib.h";
    const char* const start = "play-starts";
    const char* const unit = "position-is-milliseconds";
    return {
        {"report-holds-no-lock",
         header,
         "Thread: a thread of the player, not the plug-in thread, and holding no lock that an adaptation-layer "
         "function "
         "takes.",
         "page and player stand still for ever as soon as a report and a script call meet",
         "Holds a report inside the callback and calls the layer from the plug-in thread.",
         reportHoldsNoLock,
         {},
         "",
         {start},
         300},
        {"report-allows-calls",
         header,
         "The callback may call every function of the layer but Open, Close, AddCallback and RemoveCallback.",
         "an integrator's own callback, for example a log of positions, stops the player",
         "Asks and commands the player from inside its reports.",
         callsFromReport,
         {},
         "",
         {start, "report-holds-no-lock", unit}},
        {"remove-callback-waits",
         header,
         "When Hbbtv_AL_MediaPlayerRemoveCallback has returned, no report is under way and none follows.",
         "the browser crashes now and then when a page with media is left",
         "Holds a report inside the callback, removes the callback, and lets the report go.",
         removeWaits,
         {},
         "remove-callback",
         {start, "report-holds-no-lock"}},
        {"callback-replaced",
         header,
         "Sets the function that receives the player's reports from now on. A player has one.",
         "a page hears everything twice",
         "Sets a second callback and counts what the first gets.",
         laterCallbackReplaces,
         {},
         "",
         {start}},
        {"several-players",
         header,
         "They are called on the browser's plug-in thread, several players in turn.",
         "of two objects in a page one stays black or obeys the other's buttons",
         "Plays as many as the profile says, pauses one, looks at another.",
         severalPlayers,
         {},
         "players",
         {start, unit}},
    };
}

} // namespace compliance
