// The media-synchronisation adapter of media_sync_global.h.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"
#include "kit/Traces.h"

namespace compliance {
namespace {

constexpr int ROUNDS = 200;

void functionsExist(Trial& trial) {
    std::string names;
    for (const std::string& name : trial.platform.missing("media_sync_global.h")) {
        names += (names.empty() ? "" : ", ") + name;
    }
    trial.require(names.empty(), "no library has " + names, "all functions of media_sync_global.h");
}

/** As the plug-in reports: any state, any speed, players that are open, were closed, or could not be made. */
void reportAll(const Trial& trial, int player) {
    for (int state = 0; state <= 6; ++state) {
        trial.platform.adaptState(player, static_cast<int>(AVCONTROL), state);
    }
    for (const float speed : {0.0F, 1.0F, -2.0F, 16.0F}) {
        trial.platform.adaptSpeed(player, speed);
    }
    trial.platform.adaptRating(player, 1);
    trial.platform.adaptRating(player, 0);
}

void takesEveryReport(Trial& trial) {
    TestedPlayer player(trial);
    trial.journal.noteCall("adapt functions");
    const bool inTime = trial.returnsInTime(
        [&] {
            for (const int handle : {player.handle(), -1, 99'999}) {
                reportAll(trial, handle);
            }
        },
        [] {});
    trial.require(inTime, "the adapter kept its caller for seconds", "a return at once");
}

void keepsNothing(Trial& trial) {
    TestedPlayer player(trial);
    reportAll(trial, player.handle());
    trial.wait(milliseconds(200));
    const long threads = countThreads();
    const long descriptors = countDescriptors();
    for (int i = 0; i < ROUNDS; ++i) {
        reportAll(trial, player.handle());
    }
    const bool isSame =
        trial.comesToHold([&] { return countThreads() <= threads && countDescriptors() <= descriptors; });
    trial.require(isSame,
                  std::to_string(countThreads() - threads) + " threads and " +
                      std::to_string(countDescriptors() - descriptors) + " descriptors more",
                  "no more than after the first reports");
}

} // namespace

std::vector<Check> synchronisationChecks() {
    const char* const header = "media_sync_global.h";
    const char* const exist = "sync-functions-exist";
    return {
        {exist, header, "It receives the events that a page received.", "the plug-in is not loaded at all",
         "Looks each function up by its name.", functionsExist},
        {"sync-takes-reports",
         header,
         "state: play state of the A/V Control object, 0 to 6. Called on the browser's plug-in thread.",
         "the page stands still at each event",
         "Reports every state, speeds and ratings for three handles.",
         takesEveryReport,
         {},
         "",
         {exist, "functions-exist"}},
        {"sync-keeps-nothing",
         header,
         "Called on the browser's plug-in thread; it keeps no thread or descriptor of a report.",
         "a day of television fills the process with threads",
         "Reports 2,600 times and counts threads and descriptors.",
         keepsNothing,
         {},
         "",
         {exist, "functions-exist"}},
    };
}

} // namespace compliance
