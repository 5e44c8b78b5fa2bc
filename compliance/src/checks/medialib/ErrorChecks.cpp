// Errors by kind: what the media is.
#include "checks/Checks.h"
#include "checks/medialib/ErrorExpectation.h"

namespace compliance {
namespace {

void notFound(Trial& trial) {
    expectError(trial, trial.server.url("/media/missing.mp4"), {ERROR_NOT_AVAILABLE});
    expectError(trial, trial.server.url("/status/410/gone.mp4"), {ERROR_NOT_AVAILABLE});
}

void wrongType(Trial& trial) {
    expectError(trial, trial.server.url("/media/text.mp4"), {ERROR_FORMAT, ERROR_CORRUPT});
}

void damaged(Trial& trial) {
    expectErrorOrEnd(trial, trial.server.url("/media/damaged.mp4"), {ERROR_FORMAT, ERROR_CORRUPT});
}

void cutFile(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url("/media/truncated.mp4"));
    const std::string expected = "ERROR 1 or 4 where the data end";
    const auto code = player.waitFor(eMEDIA_CALLBACK_ERROR);
    trial.require(code.has_value(), "no ERROR came: " + player.story(), expected);
    trial.require(*code == ERROR_CONNECTION || *code == ERROR_CORRUPT, "ERROR " + std::to_string(*code), expected);
}

void otherSchemes(Trial& trial) {
    // The plug-in hands over every address in which "http" stands.
    for (const char* url : {"file:///http/film.mp4", "fd://0?http", "device:/dev/http", "data:video/mp4,http",
                            "rtsp://127.0.0.1:1/http", "nonsense:http"}) {
        expectError(trial, url, {ERROR_NOT_AVAILABLE});
    }
}

void recovers(Trial& trial) {
    TestedPlayer player(trial);
    player.start(trial.server.url("/media/missing.mp4"));
    player.await(eMEDIA_CALLBACK_ERROR, "because there is no such file");
    player.stop();
    player.forgetReports();
    player.startPlaying(trial.server.url(media::SHORT));
}

void errorSpeed(Trial& trial) {
    TestedPlayer player(trial);
    player.start(trial.server.url("/media/missing.mp4"));
    player.await(eMEDIA_CALLBACK_ERROR, "because there is no such file");
    const int speed = player.speed();
    trial.require(speed == 0, "GetSpeed returned " + std::to_string(speed) + " after ERROR", "0");
}

} // namespace

std::vector<Check> errorChecks() {
    const char* const header = "medialib.h";
    std::vector<Check> checks = {
        {"error-not-found", header, "ERROR 5, content not available: the server has no such file (404, 410).",
         "the page offers to try again what will never come", "Plays an address that the server does not know.",
         notFound},
        {"error-wrong-type", header, "ERROR 0 or 4: what came is no media that the player can decode.",
         "the page blames the network for a wrong file", "Plays a text that is called video/mp4.", wrongType},
        {"error-damaged", header, "ERROR 0 or 4, or playback to the end: the media is damaged.",
         "the object plays for ever without a picture", "Plays a film whose data are noise.", damaged},
        {"error-cut-file", header, "ERROR 1 or 4: the data end before the media does.",
         "a film that breaks off counts as seen to its end", "Plays a film of which the last 80 % are missing.",
         cutFile},
        {"error-other-schemes", header,
         "The player takes http and https only; other schemes are error 5, content not available.",
         "a page reads the television's own files and devices", "Plays addresses of file:, fd:, device: and others.",
         otherSchemes},
        {"error-then-other-source", header, "Names the media to play next.",
         "after one broken item of a list nothing plays any more", "Plays a missing file, stops, plays another.",
         recovers},
        {"error-speed-is-zero", header, "The speed in force, 0 while paused or stopped.",
         "the page shows a failed film as playing", "Asks for the speed after ERROR.", errorSpeed},
    };
    for (Check& check : checks) {
        check.needs = {"play-starts"};
        check.limitSeconds = 180;
    }
    checks[4].feature = "schemes";
    return checks;
}

} // namespace compliance
