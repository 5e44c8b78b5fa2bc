// Sources, starts and stops.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

#include <cstdlib>

namespace compliance {
namespace {

void playStarts(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
}

void playWithoutSource(Trial& trial) {
    TestedPlayer player(trial);
    if (player.play() != 0) {
        player.await(eMEDIA_CALLBACK_ERROR, "because there is no source, or 0 from Play");
    }
}

void playsFromItsBeginning(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(1500);
    player.stop();
    player.forgetReports();
    player.play();
    player.await(eMEDIA_CALLBACK_PLAYING, "after Stop and Play");
    const int64_t position = player.position();
    trial.require(position < 1400, "the position is " + std::to_string(position) + " ms right after the second start",
                  "less than where it was stopped: the media begins again");
}

void stopKeepsTheSource(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::SHORT));
    player.stop();
    player.forgetReports();
    const int result = player.play();
    trial.require(result != 0, "Play returned 0 after Stop", "a start of the same source");
    player.await(eMEDIA_CALLBACK_PLAYING, "after Stop and Play, without SetSource between them");
}

void stopAgreesTwice(Trial& trial) {
    TestedPlayer player(trial);
    const auto agrees = [&](const char* when) {
        trial.require(player.stop() != 0, std::string("Stop returned 0 ") + when, "another result than 0");
    };
    agrees("of a player that was never started");
    player.setSource(trial.server.url(media::SHORT));
    agrees("of a player that has a source and was never started");
    player.startPlaying(trial.server.url(media::SHORT));
    agrees("of a player that plays");
    agrees("of a player that is stopped already");
}

void playGoesOnWhileItRuns(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(1000);
    player.pause();
    player.await(eMEDIA_CALLBACK_PAUSED, "after Pause");
    player.play();
    player.await(eMEDIA_CALLBACK_PLAYING, "after Play of a paused player");
    const int64_t position = player.position();
    trial.require(position >= 900, "the position is " + std::to_string(position) + " ms: it began again",
                  "a position that goes on from where it was paused");
}

void sourceEndsNothing(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(300);
    player.forgetReports();
    player.setSource(trial.server.url(media::SHORT));
    player.awaitPosition(1000);
    for (const auto event : {eMEDIA_CALLBACK_STOPPED, eMEDIA_CALLBACK_ERROR, eMEDIA_CALLBACK_FINISHED}) {
        trial.require(!player.hasReport(event), "report " + eventName(event) + " after SetSource: " + player.story(),
                      "playback that goes on");
    }
}

void playsTheNextSource(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::FILM));
    player.stop();
    player.forgetReports();
    player.startPlaying(trial.server.url(media::SHORT));
    const int duration = player.duration();
    trial.require(std::abs(duration - media::SHORT_MS) <= media::DURATION_TOLERANCE_MS,
                  "the duration is " + std::to_string(duration) + " ms",
                  std::to_string(media::SHORT_MS) + " ms, that of the source that was named last");
}

void sendsTheUserAgent(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::SHORT));
    for (const HttpRequest& request : trial.server.requests()) {
        const auto agent = request.headers.find("user-agent");
        const std::string value = agent == request.headers.end() ? "" : agent->second;
        trial.require(value.find("HbbTV/") != std::string::npos,
                      "the request of " + request.path + " has the user agent \"" + value + "\"",
                      "the television's own, which has HbbTV/ and the version in it");
    }
}

void loopsAfterTheEnd(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::SHORT));
    player.await(eMEDIA_CALLBACK_FINISHED, "at the end of the media");
    player.stop();
    player.forgetReports();
    const int result = player.play();
    trial.require(result != 0, "Play returned 0 after FINISHED and Stop", "another start");
    player.await(eMEDIA_CALLBACK_PLAYING, "after FINISHED, Stop and Play");
}

} // namespace

// NOLINTNEXTLINE(readability-function-size): a table of the checks
std::vector<Check> startChecks() {
    const char* const header = "medialib.h";
    const char* const start = "play-starts";
    return {
        {"play-starts",
         header,
         "Starts the source from its beginning. PLAYING or ERROR is reported later.",
         "the object stays in the state connecting and black",
         "Names a film, starts it, asks for normal speed, waits for PLAYING.",
         playStarts,
         {},
         "",
         {"functions-exist", "open-gives-handle"}},
        {"play-without-source",
         header,
         "0 when the start is refused; the object then goes to its error state.",
         "the page waits for ever",
         "Starts a player that has no source.",
         playWithoutSource,
         {},
         "",
         {start}},
        {"play-from-beginning",
         header,
         "Starts the source from its beginning.",
         "a film that was stopped begins in its middle",
         "Plays, stops, plays, and looks at the position.",
         playsFromItsBeginning,
         {},
         "",
         {start, "position-is-milliseconds", "stop-keeps-source"}},
        {"play-goes-on",
         header,
         "Starts the source from its beginning, or, while it runs, goes on with it.",
         "going on after a pause begins the film again",
         "Plays, pauses, plays.",
         playGoesOnWhileItRuns,
         {},
         "",
         {start, "position-is-milliseconds", "pause-holds"}},
        {"stop-keeps-source",
         header,
         "Ends playback; the source stays.",
         "a stopped film cannot be started again",
         "Plays, stops, and plays without naming the source again.",
         stopKeepsTheSource,
         {},
         "",
         {start}},
        {"stop-agrees-twice",
         header,
         "A player that is stopped already agrees.",
         "stop() returns false to the page, and an object cannot be left",
         "Stops before the start and twice after it.",
         stopAgreesTwice,
         {},
         "",
         {start}},
        {"source-ends-nothing",
         header,
         "Names the media to play next. Ends nothing that runs.",
         "the film breaks off when a page names the next one",
         "Names another source while one plays.",
         sourceEndsNothing,
         {},
         "",
         {start, "position-is-milliseconds"}},
        {"source-named-last-plays",
         header,
         "Names the media to play next.",
         "the next item of a list is the one before",
         "Plays one source, stops, plays another.",
         playsTheNextSource,
         {},
         "",
         {start, "duration-is-known"}},
        {"user-agent-is-sent",
         header,
         "Asks the player to send the television's own user agent with its requests.",
         "servers that look for HbbTV refuse the media",
         "Looks at the requests that reach the server.",
         sendsTheUserAgent,
         {},
         "",
         {start}},
        {"play-after-end",
         header,
         "Starts the source from its beginning.",
         "a film that repeats stands still after its first end",
         "Plays to the end, stops, plays.",
         loopsAfterTheEnd,
         {},
         "",
         {start, "finishes", "stop-keeps-source"}},
    };
}

} // namespace compliance
