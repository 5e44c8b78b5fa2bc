// What players leave behind: memory, descriptors, threads.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"
#include "kit/Traces.h"

namespace compliance {
namespace {

constexpr int OPENS = 1000;
constexpr int WARM_UP = 100;
constexpr int PLAYBACKS = 12;

void openAndClose(Trial& trial, int times) {
    for (int i = 0; i < times; ++i) {
        int handle = -1;
        trial.platform.open(&handle);
        trial.require(handle >= 0, "no handle after " + std::to_string(i) + " players were closed", "a handle");
        trial.platform.close(handle);
    }
}

/** Plays for a moment and ends, as a page does that is left. */
void playAndClose(Trial& trial, int times) {
    for (int i = 0; i < times; ++i) {
        TestedPlayer player(trial);
        player.startPlaying(trial.server.url(media::SHORT));
        trial.wait(milliseconds(20 * i));
    }
}

/** Lets happen what happens only once, so that it is not counted, and a second round of it on another thread. */
void warmUp(Trial& trial) {
    playAndClose(trial, 3);
    openAndClose(trial, WARM_UP);
}

/** Fails unless the count comes back to what it was. */
void comesBack(Trial& trial, const std::string& what, const std::function<long()>& count, long before) {
    if (before < 0) {
        trial.note("not counted: this system has no /proc");
        return;
    }
    const bool isBack = trial.comesToHold([&] { return count() <= before && trial.server.connections() == 0; });
    trial.require(isBack, std::to_string(count()) + ' ' + what,
                  "no more " + what + " than before: " + std::to_string(before));
}

/** The kit's own threads and connections end with those of the player. */
void settle(Trial& trial, const std::function<long()>& count) {
    long last = -1;
    for (int same = 0; same < 5;) {
        trial.wait(milliseconds(200));
        same = count() == last && trial.server.connections() == 0 ? same + 1 : 0;
        last = count();
    }
}

void threadsEnd(Trial& trial) {
    warmUp(trial);
    settle(trial, countThreads);
    const long before = countThreads();
    openAndClose(trial, OPENS);
    playAndClose(trial, PLAYBACKS);
    comesBack(trial, "threads", countThreads, before);
}

void descriptorsEnd(Trial& trial) {
    warmUp(trial);
    settle(trial, countThreads);
    const long before = countDescriptors();
    openAndClose(trial, OPENS);
    playAndClose(trial, PLAYBACKS);
    comesBack(trial, "descriptors", countDescriptors, before);
}

/** Caches fill now and then and stay; what is lost with each player is lost in each round. */
void memoryEnds(Trial& trial) {
    constexpr long ALLOWED_FOR_EACH = 256; // bytes
    constexpr int ROUNDS = 3;
    warmUp(trial);
    long lost = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        openAndClose(trial, WARM_UP); // as many threads and their caches as the round will have
        settle(trial, countThreads);
        const long before = heapBytes();
        openAndClose(trial, OPENS);
        settle(trial, countThreads);
        lost = heapBytes() - before;
        if (lost < ALLOWED_FOR_EACH * OPENS) {
            trial.note(std::to_string(lost) + " bytes more in use after " + std::to_string(OPENS) + " players");
            return;
        }
    }
    trial.fail(std::to_string(lost) + " bytes more are in use after each " + std::to_string(OPENS) + " players",
               "less than " + std::to_string(ALLOWED_FOR_EACH) + " bytes for each player");
}

void survivesAnyMoment(Trial& trial) {
    TestedPlayer player(trial);
    for (int delay = 0; delay < 120; delay += 8) {
        player.start(trial.server.url(media::SHORT));
        trial.wait(milliseconds(delay));
        const int result = player.stop();
        trial.require(result != 0, "Stop returned 0 " + std::to_string(delay) + " ms after Play", "another result");
    }
    player.forgetReports();
    player.startPlaying(trial.server.url(media::SHORT));
}

} // namespace

std::vector<Check> resourceChecks() {
    const char* const header = "medialib.h";
    const char* const promise = "Ends a player and frees all it holds.";
    std::vector<Check> checks = {
        {"close-ends-threads", header, promise,
         "zapping through applications slows the television down until it restarts",
         "Opens and closes 1,000 players, plays with 12 more, and counts threads.", threadsEnd},
        {"close-frees-descriptors", header, promise, "after some hundred page changes no media opens any more",
         "Opens and closes 1,000 players, plays with 12 more, and counts descriptors.", descriptorsEnd},
        {"close-frees-memory", header, promise, "the browser runs out of memory after a day",
         "Opens and closes 1,000 players and compares the memory in use before and after.", memoryEnds},
        {"stop-at-any-moment", header, "Ends playback; the source stays.",
         "a viewer who changes his mind quickly finds a dead player or a crashed browser",
         "Starts and stops 15 times, each time a little later, and then plays.", survivesAnyMoment},
    };
    for (Check& check : checks) {
        check.needs = {"play-starts"};
        check.limitSeconds = 120;
    }
    return checks;
}

} // namespace compliance
