// Speeds.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

namespace compliance {
namespace {

using Clock = std::chrono::steady_clock;

void requireSpeed(Trial& trial, const TestedPlayer& player, int wanted, const std::string& when) {
    const int speed = player.speed();
    trial.require(speed == wanted, "GetSpeed returned " + std::to_string(speed) + ' ' + when, std::to_string(wanted));
}

void normalSpeed(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    requireSpeed(trial, player, 1, "at PLAYING");
}

void speedZeroPauses(Trial& trial) {
    constexpr int64_t STANDSTILL_MS = 120;
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(300);
    player.setSpeed(0);
    trial.require(trial.comesToHold([&] { return player.speed() == 0; }),
                  "GetSpeed returns " + std::to_string(player.speed()) + " after SetSpeed(0)", "0");
    trial.wait(milliseconds(200));
    const int64_t first = player.position();
    trial.wait(milliseconds(700));
    const int64_t moved = player.position() - first;
    trial.require(moved <= STANDSTILL_MS, "the position moved by " + std::to_string(moved) + " at speed 0",
                  "a position that stands still");
}

/** @return how far the position goes in a second of the clock */
int64_t pace(Trial& trial, const TestedPlayer& player) {
    const auto start = Clock::now();
    const int64_t first = player.position();
    trial.wait(milliseconds(1200));
    const int64_t moved = player.position() - first;
    return moved * 1000 / std::chrono::duration_cast<milliseconds>(Clock::now() - start).count();
}

void forwardIsFaster(Trial& trial) {
    constexpr int TRIES = 4;
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    const int64_t normal = pace(trial, player);
    player.forgetReports();
    player.setSpeed(4);
    player.await(eMEDIA_CALLBACK_SPEED_CHANGED, "after SetSpeed(4)");
    const int inForce = player.speed();
    trial.require(inForce > 1, "GetSpeed returned " + std::to_string(inForce) + " at SPEED_CHANGED",
                  "the speed in force, more than 1");
    int64_t fast = 0;
    for (int i = 0; i < TRIES && fast <= normal * 3 / 2; ++i) { // it takes a while to get there
        fast = pace(trial, player);
    }
    trial.note("speed " + std::to_string(inForce) + ", " + std::to_string(fast) + " ms of media a second");
    trial.require(fast > normal * 3 / 2,
                  "the position grew by " + std::to_string(fast) + " ms a second at speed " + std::to_string(inForce) +
                      " and by " + std::to_string(normal) + " at normal speed",
                  "clearly more than at normal speed");
}

void reverseGoesBack(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.seek(20'000);
    player.await(eMEDIA_CALLBACK_POSITION_CHANGED, "after Seek");
    player.await(eMEDIA_CALLBACK_PLAYING, "after Seek");
    player.forgetReports();
    player.setSpeed(-2);
    player.await(eMEDIA_CALLBACK_SPEED_CHANGED, "after SetSpeed(-2)");
    const int inForce = player.speed();
    trial.require(inForce < 0, "GetSpeed returned " + std::to_string(inForce) + " at SPEED_CHANGED",
                  "the speed in force, less than 0");
    const int64_t first = player.position();
    trial.require(trial.comesToHold([&] { return player.position() < first - 500; }),
                  "the position went from " + std::to_string(first) + " to " + std::to_string(player.position()),
                  "a position that goes back");
}

/** A speed that no player has: what it does instead, it says. */
void reportsTheRealSpeed(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(300);
    player.forgetReports();
    player.setSpeed(1000);
    player.await(eMEDIA_CALLBACK_SPEED_CHANGED, "because a speed of 1000 is not to be had");
    const int speed = player.speed();
    trial.note("speed " + std::to_string(speed) + " is the fastest");
    trial.require(speed != 1000, "GetSpeed returned 1000", "the speed that is really in force");
}

void backToNormal(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.setSpeed(2);
    player.await(eMEDIA_CALLBACK_SPEED_CHANGED, "after SetSpeed(2)");
    player.forgetReports();
    player.setSpeed(1);
    player.await(eMEDIA_CALLBACK_SPEED_CHANGED, "after SetSpeed(1) at another speed");
    requireSpeed(trial, player, 1, "at SPEED_CHANGED");
}

} // namespace

// NOLINTNEXTLINE(readability-function-size): a table of the checks
std::vector<Check> speedChecks() {
    const char* const header = "medialib.h";
    const char* const start = "play-starts";
    const char* const unit = "position-is-milliseconds";
    const char* const reported =
        "SPEED_CHANGED is reported when the speed in force has changed, or is not the one that was asked for.";
    return {
        {"speed-is-normal",
         header,
         "The speed in force, 0 while paused or stopped.",
         "the page believes that a film that plays is paused",
         "Asks at PLAYING.",
         normalSpeed,
         {},
         "",
         {start}},
        {"speed-zero-pauses",
         header,
         "speed: 1 is normal, 0 a pause, negative backwards.",
         "play(0) does not pause",
         "Asks for speed 0 while playing.",
         speedZeroPauses,
         {},
         "",
         {start, unit}},
        {"trick-forward",
         header,
         "speed: 1 is normal, 0 a pause, negative backwards; always a whole number.",
         "fast forward does nothing",
         "Asks for speed 4 and compares how fast the position grows.",
         forwardIsFaster,
         {},
         "trick-play",
         {start, unit}},
        {"trick-reverse",
         header,
         "speed: 1 is normal, 0 a pause, negative backwards; always a whole number.",
         "rewind does nothing",
         "Asks for speed -2 and looks whether the position goes back.",
         reverseGoesBack,
         {},
         "reverse",
         {start, unit, "seek-moves-the-media"}},
        {"speed-back-to-normal",
         header,
         reported,
         "after fast forward the page's buttons stay as they were",
         "Asks for speed 2 and then for 1.",
         backToNormal,
         {},
         "trick-play",
         {start}},
        {"speed-really-in-force",
         header,
         reported,
         "the page shows a speed that is not that of the picture",
         "Asks for speed 1000.",
         reportsTheRealSpeed,
         {},
         "",
         {start, unit}},
    };
}

} // namespace compliance
