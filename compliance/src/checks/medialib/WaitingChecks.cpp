// Commands while a server hangs: they return, whatever takes time comes later.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

namespace compliance {
namespace {

// Far more than a call takes on the slowest machine, far less than a player waits for a silent server.
constexpr std::chrono::seconds LONGEST_CALL(5);

/** Runs calls one after the other; each has to return while the server is still silent. */
void returnWhileSilent(Trial& trial, const std::vector<std::pair<const char*, std::function<void()>>>& calls) {
    for (const auto& [name, call] : calls) {
        const bool inTime = trial.returnsInTime(
            call, [&] { trial.server.release(); }, LONGEST_CALL);
        trial.require(inTime, std::string(name) + " returned only when the server ended its silence",
                      "a return while the server is silent");
    }
}

void awaitSilence(Trial& trial) {
    trial.require(trial.comesToHold([&] { return trial.server.held() > 0; }),
                  "no request reached the server, or its connection was given up: the call has waited for it",
                  "a request that the server leaves open");
}

void startDoesNotWait(Trial& trial) {
    TestedPlayer player(trial);
    const std::string url = trial.server.url("/silent/film.mp4");
    sub_properties_t track = {};
    trial.server.url("/silent/words.vtt").copy(track.url, sizeof track.url - 1);
    returnWhileSilent(trial, {{"AddSubtitle", [&] { player.addSubtitle(track); }},
                              {"SetSource", [&] { player.setSource(url); }},
                              {"Play", [&] { player.play(); }},
                              {"SetSpeed", [&] { player.setSpeed(1); }}});
    awaitSilence(trial);
}

void questionsDoNotWait(Trial& trial) {
    TestedPlayer player(trial);
    player.start(trial.server.url("/silent/film.mp4"));
    awaitSilence(trial);
    returnWhileSilent(trial, {{"GetPosition", [&] { player.position(); }},
                              {"GetDuration", [&] { player.duration(); }},
                              {"GetSpeed", [&] { player.speed(); }},
                              {"SetWindow", [&] { player.setWindow(0, 0, 640, 360); }},
                              {"Open and Close of another player", [&] { TestedPlayer other(trial); }}});
}

void commandsDoNotWait(Trial& trial) {
    TestedPlayer player(trial);
    player.start(trial.server.url("/silent/film.mp4"));
    awaitSilence(trial);
    returnWhileSilent(trial,
                      {{"Pause", [&] { player.pause(); }},
                       {"Resume", [&] { player.resume(); }},
                       {"Seek", [&] { player.seek(5000); }},
                       {"SelectDefaultAVComponent", [&] { trial.platform.selectDefault(player.handle(), 1); }},
                       {"UnselectAVComponentByType", [&] { trial.platform.unselectByType(player.handle(), 2); }}});
}

void endDoesNotWait(Trial& trial) {
    TestedPlayer player(trial);
    player.start(trial.server.url("/silent/film.mp4"));
    awaitSilence(trial);
    returnWhileSilent(trial, {{"Stop", [&] { player.stop(); }},
                              {"RemoveCallback", [&] { player.removeCallback(); }},
                              {"Close", [&] { player.close(); }}});
}

void stallDoesNotBlock(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url("/stall/50/media/film.mp4"));
    returnWhileSilent(trial, {{"Seek into what has not come", [&] { player.seek(28'000); }},
                              {"Pause", [&] { player.pause(); }},
                              {"GetPosition", [&] { player.position(); }},
                              {"Resume", [&] { player.resume(); }},
                              {"Stop", [&] { player.stop(); }},
                              {"RemoveCallback", [&] { player.removeCallback(); }},
                              {"Close", [&] { player.close(); }}});
}

} // namespace

std::vector<Check> waitingChecks() {
    const char* const header = "medialib.h";
    const char* const promise = "They must return without waiting for the network, the decoder or the callback: "
                                "whatever takes time is reported "
                                "later through the callback.";
    const char* const why = "page, remote control and clock stand still while a server is slow";
    std::vector<Check> checks = {
        {"start-does-not-wait", header, promise, why, "Starts a source whose server takes the request and is silent.",
         startDoesNotWait},
        {"questions-do-not-wait", header, promise, why, "Asks and places the picture while a server is silent.",
         questionsDoNotWait},
        {"commands-do-not-wait", header, promise, why, "Pauses, resumes, seeks, selects while a server is silent.",
         commandsDoNotWait},
        {"end-does-not-wait", header, promise, "a page cannot be left while its server is slow",
         "Stops and closes while a server is silent.", endDoesNotWait},
        {"stall-does-not-block", header, promise, why,
         "Commands a player that plays while its server has stopped sending in the middle.", stallDoesNotBlock},
    };
    for (Check& check : checks) {
        check.needs = {"play-starts"};
        check.limitSeconds = 120;
        if (&check != &checks.front()) {
            check.needs.push_back(checks.front().name);
        }
    }
    return checks;
}

} // namespace compliance
