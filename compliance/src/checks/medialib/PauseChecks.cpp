// Pause and resume.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

#include <cstdlib>

namespace compliance {
namespace {

// Between a report and the clock's standstill a frame or two may pass.
constexpr int64_t STANDSTILL_MS = 120;

void pausesAt(Trial& trial, TestedPlayer& player, int64_t ms) {
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(ms);
    const int result = player.pause();
    trial.require(result != 0, "Pause returned 0 while playing", "another result");
    player.await(eMEDIA_CALLBACK_PAUSED, "after Pause");
}

void pauseHolds(Trial& trial) {
    TestedPlayer player(trial);
    pausesAt(trial, player, 800);
    const int64_t first = player.position();
    trial.wait(milliseconds(1000));
    const int64_t second = player.position();
    trial.require(std::abs(second - first) <= STANDSTILL_MS,
                  "the position went from " + std::to_string(first) + " to " + std::to_string(second) + " while paused",
                  "the same position a second later");
}

void pausedSpeedIsZero(Trial& trial) {
    TestedPlayer player(trial);
    pausesAt(trial, player, 300);
    const int speed = player.speed();
    trial.require(speed == 0, "GetSpeed returned " + std::to_string(speed) + " while paused", "0");
    player.stop();
    const int stopped = player.speed();
    trial.require(stopped == 0, "GetSpeed returned " + std::to_string(stopped) + " after Stop", "0");
}

void resumeGoesOn(Trial& trial) {
    TestedPlayer player(trial);
    pausesAt(trial, player, 800);
    const int64_t paused = player.position();
    const int result = player.resume();
    trial.require(result != 0, "Resume returned 0 while paused", "another result");
    player.await(eMEDIA_CALLBACK_PLAYING, "after Resume");
    const int64_t resumed = player.position();
    trial.require(resumed >= paused - STANDSTILL_MS,
                  "the position was " + std::to_string(paused) + " and is " + std::to_string(resumed) + " after Resume",
                  "a position that goes on from the one before");
    player.awaitPosition(paused + 500);
}

/** What a page's play(0) of a stopped object does. */
void pauseStartsHeld(Trial& trial) {
    TestedPlayer player(trial);
    player.setSource(trial.server.url(media::FILM));
    if (player.pause() == 0) {
        trial.note("refused: the object goes to its error state");
        return;
    }
    player.await(eMEDIA_CALLBACK_PAUSED, "when the first frame is there, or 0 from Pause");
    trial.wait(milliseconds(300));
    const int64_t position = player.position();
    trial.require(position <= STANDSTILL_MS, "the position is " + std::to_string(position), "0: nothing plays");
    player.resume();
    player.await(eMEDIA_CALLBACK_PLAYING, "after Resume");
}

} // namespace

std::vector<Check> pauseChecks() {
    const char* const header = "medialib.h";
    const char* const start = "play-starts";
    const char* const unit = "position-is-milliseconds";
    return {
        {"pause-holds",
         header,
         "Holds the picture. PAUSED is reported when it is held.",
         "the film goes on behind the page's pause sign",
         "Pauses and compares the position a second later.",
         pauseHolds,
         {},
         "",
         {start, unit}},
        {"paused-speed-is-zero",
         header,
         "The speed in force, 0 while paused or stopped.",
         "the page shows a film that is paused as playing",
         "Asks for the speed while paused and after Stop.",
         pausedSpeedIsZero,
         {},
         "",
         {start, "pause-holds"}},
        {"resume-goes-on",
         header,
         "Goes on after Pause; PLAYING is reported when it does.",
         "the play button does nothing, or jumps",
         "Pauses, resumes, waits for PLAYING, compares positions.",
         resumeGoesOn,
         {},
         "",
         {start, unit, "pause-holds"}},
        {"pause-before-start",
         header,
         "Pause of a player that has a source and is stopped starts it held at its first frame, or is refused with 0.",
         "play(0) shows nothing, or plays",
         "Pauses a player that was not started.",
         pauseStartsHeld,
         {},
         "",
         {start, unit}},
    };
}

} // namespace compliance
