// Adaptive streams.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

#include <cstdlib>

namespace compliance {
namespace {

constexpr int STREAM_MS = 10'000;
constexpr int TOLERANCE_MS = 500; // manifests count whole segments

void plays(Trial& trial, const std::string& path) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(path));
    const int duration = player.duration();
    trial.require(std::abs(duration - STREAM_MS) <= TOLERANCE_MS,
                  "GetDuration returned " + std::to_string(duration) + " at PLAYING",
                  std::to_string(STREAM_MS) + " ms");
    player.awaitPosition(player.position() + 300);
    player.forgetReports();
    const int result = player.seek(8000);
    trial.require(result != 0, "Seek returned 0", "another result");
    player.await(eMEDIA_CALLBACK_POSITION_CHANGED, "after Seek");
    player.awaitPosition(8000 - trial.profile.seekAccuracyMs);
    player.await(eMEDIA_CALLBACK_FINISHED, "at the end of the stream");
}

void missing(Trial& trial, const std::string& path) {
    TestedPlayer player(trial);
    player.start(trial.server.url(path));
    const int code = player.await(eMEDIA_CALLBACK_ERROR, "because there is no such manifest");
    trial.require(code == 5, "ERROR " + std::to_string(code), "ERROR 5, content not available");
}

} // namespace

std::vector<Check> streamChecks() {
    const char* const header = "medialib.h";
    const std::vector<const char*> needs = {"play-starts", "position-is-milliseconds", "seek-lands", "finishes",
                                            "duration-is-known"};
    return {
        {"hls-plays",
         header,
         "Starts the source from its beginning. PLAYING or ERROR is reported later.",
         "services that stream HLS stay black",
         "Plays, seeks and ends an HLS playlist.",
         [](Trial& trial) { plays(trial, "/media/hls/master.m3u8"); },
         {},
         "hls",
         needs},
        {"hls-missing",
         header,
         "ERROR 5, content not available: the server has no such file (404, 410).",
         "the page offers to try again what will never come",
         "Plays a playlist that is not there.",
         [](Trial& trial) { missing(trial, "/media/hls/none.m3u8"); },
         {},
         "hls",
         {"error-not-found"}},
        {"dash-plays",
         header,
         "Starts the source from its beginning. PLAYING or ERROR is reported later.",
         "services that stream DASH stay black",
         "Plays, seeks and ends a DASH manifest.",
         [](Trial& trial) { plays(trial, "/media/dash/manifest.mpd"); },
         {},
         "dash",
         needs},
        {"dash-missing",
         header,
         "ERROR 5, content not available: the server has no such file (404, 410).",
         "the page offers to try again what will never come",
         "Plays a manifest that is not there.",
         [](Trial& trial) { missing(trial, "/media/dash/none.mpd"); },
         {},
         "dash",
         {"error-not-found"}},
    };
}

} // namespace compliance
