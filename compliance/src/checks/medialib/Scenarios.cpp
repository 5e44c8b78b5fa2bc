#include "checks/medialib/Scenarios.h"

namespace compliance {
namespace {

constexpr milliseconds LONG_ENOUGH(700); // for a report that is late

void startFilm(Trial& trial, TestedPlayer& player, const std::string& path) {
    player.start(trial.server.url(path));
    player.waitFor(eMEDIA_CALLBACK_PLAYING);
}

} // namespace

void liveThrough(Trial& trial) {
    TestedPlayer player(trial);
    startFilm(trial, player, media::FILM);
    player.pause();
    player.waitFor(eMEDIA_CALLBACK_PAUSED);
    player.resume();
    player.waitFor(eMEDIA_CALLBACK_PLAYING);
    player.seek(10'000);
    player.waitFor(eMEDIA_CALLBACK_PLAYING);
    trial.wait(LONG_ENOUGH);
    player.stop();
    player.start(trial.server.url("/media/missing.mp4"));
    player.waitFor(eMEDIA_CALLBACK_ERROR);
}

void playToTheEnd(Trial& trial) {
    TestedPlayer player(trial);
    startFilm(trial, player, media::SHORT);
    player.waitFor(eMEDIA_CALLBACK_FINISHED);
    trial.wait(LONG_ENOUGH);
}

void failToPlay(Trial& trial) {
    TestedPlayer player(trial);
    player.start(trial.server.url("/media/missing.mp4"));
    player.waitFor(eMEDIA_CALLBACK_ERROR);
    trial.wait(LONG_ENOUGH);
}

void stopWhilePlaying(Trial& trial) {
    TestedPlayer player(trial);
    startFilm(trial, player, media::FILM);
    player.stop();
    trial.wait(LONG_ENOUGH);
    player.start(trial.server.url(media::FILM)); // and before it plays
    player.stop();
    trial.wait(LONG_ENOUGH);
}

void removeWhilePlaying(Trial& trial) {
    TestedPlayer player(trial);
    player.start(trial.server.url(media::FILM));
    player.removeCallback();
    trial.wait(LONG_ENOUGH);
    player.seek(10'000);
    trial.wait(LONG_ENOUGH);
}

void closeAfterPlaying(Trial& trial) {
    TestedPlayer player(trial);
    startFilm(trial, player, media::FILM);
    player.stop();
    player.removeCallback();
    player.close();
    trial.wait(LONG_ENOUGH);
}

} // namespace compliance
