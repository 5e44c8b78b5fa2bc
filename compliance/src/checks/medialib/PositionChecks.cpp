// Positions and durations.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

#include <cstdlib>

namespace compliance {
namespace {

using Clock = std::chrono::steady_clock;

int64_t since(Clock::time_point start) {
    return std::chrono::duration_cast<milliseconds>(Clock::now() - start).count();
}

void nothingWithoutMedia(Trial& trial) {
    TestedPlayer player(trial);
    const int64_t position = player.position();
    trial.require(position == -1, "GetPosition returned " + std::to_string(position) + " without a source", "-1");
    const int duration = player.duration();
    trial.require(duration == -1, "GetDuration returned " + std::to_string(duration) + " without a source", "-1");
}

/** The factor between units is 1,000; a slow machine may well play at half its speed. */
void unitIsMilliseconds(Trial& trial) {
    constexpr int64_t SLOWEST = 10; // a tenth
    constexpr int64_t FASTEST = 5;
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    const auto start = Clock::now();
    const int64_t first = player.position();
    trial.wait(milliseconds(1500));
    const int64_t passed = player.position() - first;
    const int64_t elapsed = since(start);
    trial.require(passed >= elapsed / SLOWEST && passed <= elapsed * FASTEST,
                  "the position grew by " + std::to_string(passed) + " in " + std::to_string(elapsed) + " ms",
                  "a position in milliseconds");
}

void positionGrows(Trial& trial) {
    constexpr int64_t LARGEST_JUMP = 1000;
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(100);
    const int64_t first = player.position();
    int64_t last = first;
    auto asked = Clock::now();
    for (const auto start = Clock::now(); since(start) < 2500;) {
        trial.wait(milliseconds(20));
        const int64_t apart = since(asked);
        asked = Clock::now();
        const int64_t position = player.position();
        const std::string step = "the position went from " + std::to_string(last) + " to " + std::to_string(position) +
                                 " within " + std::to_string(apart) + " ms";
        trial.require(position >= last, step, "a position that never goes back while the media plays");
        trial.require(position - last <= apart + LARGEST_JUMP, step, "a position that does not jump");
        last = position;
    }
    trial.require(last > first, "the position stayed at " + std::to_string(last), "a position that grows");
}

void durationIsKnown(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    const int duration = player.duration();
    trial.require(std::abs(duration - media::FILM_MS) <= media::DURATION_TOLERANCE_MS,
                  "GetDuration returned " + std::to_string(duration) + " at PLAYING",
                  std::to_string(media::FILM_MS) + " ms within " + std::to_string(media::DURATION_TOLERANCE_MS));
}

void endIsTheDuration(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::SHORT));
    player.await(eMEDIA_CALLBACK_FINISHED, "at the end of the media");
    const int64_t position = player.position();
    const int duration = player.duration();
    trial.require(std::abs(position - duration) <= media::DURATION_TOLERANCE_MS,
                  "the position is " + std::to_string(position) + " at FINISHED",
                  "the duration, " + std::to_string(duration));
}

void finishes(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::SHORT));
    player.await(eMEDIA_CALLBACK_FINISHED, "at the end of the media");
}

} // namespace

std::vector<Check> positionChecks() {
    const char* const header = "medialib.h";
    const char* const start = "play-starts";
    const char* const unit = "position-is-milliseconds";
    return {
        {"no-position-without-media",
         header,
         "The position, or -1 when the player has none. The duration, -1 when there is no media or no player.",
         "playPosition and playTime are numbers before there is media",
         "Asks a player that has no source.",
         nothingWithoutMedia,
         {},
         "",
         {"open-gives-handle"}},
        {"position-is-milliseconds",
         header,
         "Times are milliseconds.",
         "progress bars stand still or are full at once; seek buttons jump to the end",
         "Plays for a second and a half and compares orders of magnitude.",
         unitIsMilliseconds,
         {},
         "",
         {start}},
        {"position-grows",
         header,
         "While media plays at normal speed the position grows with the time: it never goes back and does not jump.",
         "progress bars flicker, subtitles of the page come twice",
         "Plays and asks 50 times a second.",
         positionGrows,
         {},
         "",
         {start, unit}},
        {"duration-is-known",
         header,
         "The duration, known when PLAYING is reported.",
         "seek() is refused, progress bars have no end",
         "Asks at PLAYING.",
         durationIsKnown,
         {},
         "",
         {start}},
        {"finishes",
         header,
         "FINISHED: the end of the media.",
         "queues and loops stop after the first item",
         "Plays a short film to its end.",
         finishes,
         {},
         "",
         {start}},
        {"end-is-the-duration",
         header,
         "At FINISHED the position is the duration.",
         "the progress bar stops before its end",
         "Plays to the end and compares.",
         endIsTheDuration,
         {},
         "",
         {start, unit, "finishes", "duration-is-known"}},
    };
}

} // namespace compliance
