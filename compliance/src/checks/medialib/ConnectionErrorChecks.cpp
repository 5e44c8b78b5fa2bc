// Errors by kind: what the connection does.
#include "checks/Checks.h"
#include "checks/medialib/ErrorExpectation.h"

namespace compliance {
namespace {

void refused(Trial& trial) {
    expectError(trial, trial.server.refusedUrl(), {ERROR_CONNECTION});
}

void cutOff(Trial& trial) {
    expectError(trial, trial.server.url("/cut/5/media/film.mp4"), {ERROR_CONNECTION});
}

void silent(Trial& trial) {
    expectError(trial, trial.server.url("/silent/film.mp4"), {ERROR_CONNECTION});
}

void stalled(Trial& trial) {
    expectError(trial, trial.server.url("/stall/20/media/film.mp4"), {ERROR_CONNECTION});
}

void serverError(Trial& trial) {
    expectError(trial, trial.server.url("/status/500/film.mp4"),
                {ERROR_CONNECTION, ERROR_UNIDENTIFIED, ERROR_NOT_AVAILABLE});
}

void slowServer(Trial& trial) {
    constexpr const char* AT_TWICE_ITS_RATE = "/slow/100000/media/short.mp4";
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(AT_TWICE_ITS_RATE));
    player.await(eMEDIA_CALLBACK_FINISHED, "because a slow server is no error");
}

} // namespace

std::vector<Check> connectionErrorChecks() {
    const char* const header = "medialib.h";
    std::vector<Check> checks = {
        {"error-refused", header, "ERROR 1, no connection: nobody answers at the server's address.",
         "the page says that the film does not exist when the network is down", "Plays from a port that is closed.",
         refused},
        {"error-cut-off", header, "ERROR 1, connection lost: the server closes the connection in the middle.",
         "a film that breaks off counts as seen to its end", "The server announces a film and closes after 5 %.",
         cutOff},
        {"error-silent-server", header, "ERROR 1: a server that takes the request and sends nothing.",
         "the object stays in the state connecting for ever", "The server takes the request and is silent.", silent},
        {"error-stalled-server", header, "ERROR 1: a server that stops sending in the middle.",
         "the object stays in the state buffering for ever", "The server sends 20 % of a film and is silent.", stalled},
        {"error-server-failure", header, "ERROR 1, 2 or 5: the server answers with an error of its own (500).",
         "the page waits for ever", "The server answers with 500.", serverError},
        {"slow-server-is-no-error", header, "PLAYING or ERROR is reported later.",
         "viewers with slow lines see an error instead of a film", "Plays to the end at 100,000 bytes a second.",
         slowServer},
    };
    for (Check& check : checks) {
        check.needs = {"play-starts"};
        check.limitSeconds = 120;
    }
    return checks;
}

} // namespace compliance
