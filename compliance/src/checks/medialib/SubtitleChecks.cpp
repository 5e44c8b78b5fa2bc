// External subtitle tracks.
#include "checks/Checks.h"
#include "checks/medialib/Components.h"

namespace compliance {
namespace {

constexpr int SUBTITLE = AV_COMPONENT_TYPE_SUBTITLE;

size_t countTracks(const Trial& trial, const TestedPlayer& player) {
    return listComponents(trial, player, SUBTITLE).size();
}

void listsTracks(Trial& trial) {
    TestedPlayer player(trial);
    player.setSource(trial.server.url(media::FILM));
    addTrack(player, trial.server.url("/media/words.en.vtt"), "en", "English");
    addTrack(player, trial.server.url("/media/words.de.srt"), "ger", "Deutsch");
    player.startPlaying(trial.server.url(media::FILM));
    trial.require(trial.comesToHold([&] { return countTracks(trial, player) == 2; }),
                  std::to_string(countTracks(trial, player)) + " subtitle components are listed", "2");
    const auto list = listComponents(trial, player, SUBTITLE);
    const std::string languages = std::string(list[0].language) + ' ' + list[1].language;
    trial.require(languages == "eng deu" || languages == "eng ger", "the languages are " + languages,
                  "ISO 639-2 codes: eng and deu (or ger)");
}

void selectsTrack(Trial& trial) {
    TestedPlayer player(trial);
    player.setSource(trial.server.url(media::FILM));
    addTrack(player, trial.server.url("/media/words.en.vtt"), "en", "English");
    player.startPlaying(trial.server.url(media::FILM));
    trial.require(trial.comesToHold([&] { return countTracks(trial, player) == 1; }), "no track is listed", "1");
    player.forgetReports();
    selectComponent(trial, player, SUBTITLE, listComponents(trial, player, SUBTITLE)[0].pid, true);
    const int code = player.await(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, "after SelectAVSubtitleComponent");
    trial.require(code == SUBTITLE, "SELECTED_COMPONENT_CHANGED " + std::to_string(code), "2");
    trial.require(trial.comesToHold([&] { return countActive(trial, player, SUBTITLE) == 1; }, std::chrono::seconds(5)),
                  "the track is not active after it was selected", "active 1");
    player.select([&] { return trial.platform.unselectByType(player.handle(), SUBTITLE); });
    player.await(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, "after UnselectAVComponentByType");
    trial.require(countActive(trial, player, SUBTITLE) == 0, "a track is active after all were unselected", "none");
}

void badTracksStopNothing(Trial& trial) {
    TestedPlayer player(trial);
    player.setSource(trial.server.url(media::FILM));
    for (const std::string& url :
         {trial.server.url("/media/missing.vtt"), trial.server.url("/media/film.mp4"), trial.server.refusedUrl(),
          trial.server.url("/silent/words.vtt"), std::string("nonsense:words")}) {
        addTrack(player, url, "en", "a label of 15 bt");
    }
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(1000);
    trial.require(!player.hasReport(eMEDIA_CALLBACK_ERROR), "ERROR came: " + player.story(),
                  "a film that plays without its subtitles");
}

void emptyAddsNothing(Trial& trial) {
    TestedPlayer player(trial);
    player.setSource(trial.server.url(media::FILM));
    addTrack(player, "", "en", "English");
    player.startPlaying(trial.server.url(media::FILM));
    player.awaitPosition(300);
    trial.require(countTracks(trial, player) == 0, std::to_string(countTracks(trial, player)) + " tracks are listed",
                  "none");
}

} // namespace

std::vector<Check> subtitleChecks() {
    const char* const header = "medialib.h";
    const std::vector<const char*> needs = {"play-starts", "position-is-milliseconds"};
    return {
        {"subtitle-is-listed",
         header,
         "Adds an external subtitle track for the player's media.",
         "subtitles that a page names cannot be chosen",
         "Adds two tracks, overwrites the caller's records, and lists the components.",
         listsTracks,
         {},
         "subtitles",
         needs},
        {"subtitle-is-selected",
         header,
         "Selects or unselects one component; SELECTED_COMPONENT_CHANGED is reported when it has happened.",
         "subtitles cannot be switched on or off",
         "Selects the track and unselects it by its type.",
         selectsTrack,
         {},
         "subtitles",
         {"play-starts", "subtitle-is-listed"}},
        {"subtitle-stops-nothing",
         header,
         "A track that cannot be had must not stop the media.",
         "a film does not start because of a file with subtitles",
         "Adds tracks that are missing, wrong, refused, silent and nonsense, and plays.",
         badTracksStopNothing,
         {},
         "subtitles",
         needs},
        {"subtitle-empty-is-none",
         header,
         "properties: the track, the caller's; an empty url asks for nothing.",
         "a page offers subtitles that do not exist",
         "Adds a track without an address and lists the components.",
         emptyAddsNothing,
         {},
         "subtitles",
         needs},
    };
}

} // namespace compliance
