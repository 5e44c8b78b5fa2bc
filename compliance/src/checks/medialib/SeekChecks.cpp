// Seeks.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

#include <cstdlib>

namespace compliance {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int TARGET_MS = 20'000;

void seekTo(Trial& trial, TestedPlayer& player, int ms) {
    player.forgetReports();
    const int result = player.seek(ms);
    trial.require(result != 0, "Seek(" + std::to_string(ms) + ") returned 0 while playing", "another result");
}

void seekReports(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(200);
    seekTo(trial, player, TARGET_MS);
    player.await(eMEDIA_CALLBACK_POSITION_CHANGED, "after Seek");
    player.await(eMEDIA_CALLBACK_PLAYING, "after POSITION_CHANGED, because playback goes on");
}

/** @param latest how far playback may have come since the seek */
void requireNear(Trial& trial, int64_t position, int target, int64_t latest) {
    const int accuracy = trial.profile.seekAccuracyMs;
    trial.require(position >= target - accuracy && position <= target + accuracy + latest,
                  "the position is " + std::to_string(position) + " after Seek(" + std::to_string(target) + ")",
                  "a position within " + std::to_string(accuracy) + " ms of it");
}

void seekLands(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    for (const int target : {TARGET_MS, 5000, 12'345}) {
        seekTo(trial, player, target);
        const auto asked = Clock::now();
        player.await(eMEDIA_CALLBACK_POSITION_CHANGED, "after Seek");
        const int64_t position = player.position();
        requireNear(trial, position, target, std::chrono::duration_cast<milliseconds>(Clock::now() - asked).count());
    }
}

/** A position can be claimed; the end of the media cannot. From the beginning it would be thirty seconds away. */
void seekMovesTheMedia(Trial& trial) {
    constexpr int BEFORE_THE_END_MS = 1500;
    constexpr std::chrono::seconds LATEST(15);
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    seekTo(trial, player, media::FILM_MS - BEFORE_THE_END_MS);
    const auto asked = Clock::now();
    while (!player.hasReport(eMEDIA_CALLBACK_FINISHED)) {
        trial.require(Clock::now() - asked < LATEST,
                      "no FINISHED within " + std::to_string(LATEST.count()) + " s: " + player.story(),
                      "the end, " + std::to_string(BEFORE_THE_END_MS) + " ms of media after the seek");
        trial.wait(milliseconds(20));
    }
}

void seekWhilePaused(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.pause();
    player.await(eMEDIA_CALLBACK_PAUSED, "after Pause");
    seekTo(trial, player, TARGET_MS);
    player.await(eMEDIA_CALLBACK_POSITION_CHANGED, "after Seek while paused");
    trial.wait(milliseconds(500));
    trial.require(!player.hasReport(eMEDIA_CALLBACK_PLAYING), "PLAYING came: " + player.story(),
                  "a player that stays paused");
    requireNear(trial, player.position(), TARGET_MS, 0);
}

void lastSeekWins(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.forgetReports();
    for (int i = 0; i < 20; ++i) {
        player.seek(2000 + i * 100);
        trial.wait(milliseconds(10));
    }
    player.seek(TARGET_MS);
    player.awaitPosition(TARGET_MS - trial.profile.seekAccuracyMs);
    player.await(eMEDIA_CALLBACK_POSITION_CHANGED, "after the seeks");
    player.await(eMEDIA_CALLBACK_PLAYING, "after the seeks");
    const int64_t position = player.position();
    trial.require(position >= TARGET_MS - trial.profile.seekAccuracyMs,
                  "the position is " + std::to_string(position) + " after the last of many seeks",
                  "the target of the last");
}

void negativeSeek(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(1500);
    player.forgetReports();
    const int64_t before = player.position();
    if (player.seek(-1000) == 0) {
        player.awaitPosition(before + 300);
        trial.note("refused");
        return;
    }
    player.await(eMEDIA_CALLBACK_POSITION_CHANGED, "after Seek(-1000), or 0 from it");
    const int64_t position = player.position();
    trial.require(position >= 0 && position < before, "the position is " + std::to_string(position),
                  "the beginning of the media");
}

void seekWhenStopped(Trial& trial) {
    TestedPlayer player(trial);
    player.setSource(trial.server.url(media::SHORT));
    player.seek(1000);
    player.startPlaying(trial.server.url(media::SHORT));
    player.stop();
    player.seek(1000);
    trial.wait(milliseconds(300));
}

} // namespace

// NOLINTNEXTLINE(readability-function-size): a table of the checks
std::vector<Check> seekChecks() {
    const char* const header = "medialib.h";
    const char* const start = "play-starts";
    const char* const unit = "position-is-milliseconds";
    const char* const promise = "Moves the position; POSITION_CHANGED is reported when it is done.";
    return {
        {"seek-reports",
         header,
         "POSITION_CHANGED is reported when it is done, and PLAYING when playback goes on.",
         "the object stays in the state buffering after each seek",
         "Seeks while playing and waits for both reports.",
         seekReports,
         {},
         "",
         {start, unit}},
        {"seek-lands",
         header,
         promise,
         "the picture is elsewhere than the page's progress bar says",
         "Seeks forwards and backwards and asks for the position at POSITION_CHANGED.",
         seekLands,
         {},
         "",
         {start, unit, "seek-reports"}},
        {"seek-moves-the-media",
         header,
         promise,
         "the progress bar jumps and the film does not",
         "Seeks close to the end and waits for FINISHED.",
         seekMovesTheMedia,
         {},
         "",
         {start, "seek-lands", "finishes"}},
        {"seek-while-paused",
         header,
         "A paused player stays paused at a seek: POSITION_CHANGED is reported, PLAYING is not.",
         "moving through a paused film starts it",
         "Seeks while paused and waits half a second.",
         seekWhilePaused,
         {},
         "",
         {start, "seek-lands", "pause-holds"}},
        {"last-seek-wins",
         header,
         "Of several seeks the last one decides where playback goes on.",
         "a viewer who presses a button quickly ends somewhere",
         "Seeks 21 times in a fifth of a second.",
         lastSeekWins,
         {},
         "",
         {start, "seek-lands"}},
        {"negative-seek",
         header,
         "ms: position; the plug-in passes it on even when negative. 0 when refused.",
         "a button for ten seconds back breaks the player at the beginning of a film",
         "Seeks to -1000: refused, or the beginning.",
         negativeSeek,
         {},
         "",
         {start, unit}},
        {"seek-when-stopped",
         header,
         "0 when refused.",
         "a seek button pressed too early or too late breaks the player",
         "Seeks before the start and after Stop, and plays.",
         seekWhenStopped,
         {},
         "",
         {start}},
    };
}

} // namespace compliance
