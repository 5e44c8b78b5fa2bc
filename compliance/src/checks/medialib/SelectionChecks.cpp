// Selection of components.
#include "checks/Checks.h"
#include "checks/medialib/Components.h"

#include <algorithm>

namespace compliance {
namespace {

constexpr int AUDIO = AV_COMPONENT_TYPE_AUDIO;

void startLanguages(Trial& trial, TestedPlayer& player) {
    player.startPlaying(trial.server.url(media::LANGUAGES));
    trial.require(trial.comesToHold([&] { return listComponents(trial, player, AUDIO).size() == 2; }),
                  std::to_string(listComponents(trial, player, AUDIO).size()) + " audio components are listed", "2");
    player.forgetReports();
}

void awaitChange(Trial& trial, TestedPlayer& player, int type, const std::string& after) {
    const int code = player.await(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED, after);
    trial.require(code == type, "SELECTED_COMPONENT_CHANGED " + std::to_string(code) + ' ' + after,
                  std::to_string(type) + ", the type of the component");
}

/** @return the first audio component that is active, or is not */
Hbbtv_AL_ComponentInfo audioThatIs(Trial& trial, const TestedPlayer& player, int active) {
    const auto list = listComponents(trial, player, AUDIO);
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto& info) { return info.active == active; });
    trial.require(found != list.end(), "no audio component with active " + std::to_string(active),
                  "one of two audio tracks active");
    return *found;
}

void selectsAudio(Trial& trial) {
    TestedPlayer player(trial);
    startLanguages(trial, player);
    const int wanted = audioThatIs(trial, player, 0).pid;
    selectComponent(trial, player, AUDIO, wanted, true);
    awaitChange(trial, player, AUDIO, "after SelectAVAudioComponent");
    const bool isActive =
        trial.comesToHold([&] { return audioThatIs(trial, player, 1).pid == wanted; }, std::chrono::seconds(5));
    trial.require(isActive,
                  "the component with pid " + std::to_string(audioThatIs(trial, player, 1).pid) + " is active",
                  "the one that was selected, pid " + std::to_string(wanted));
    player.awaitPosition(player.position() + 300);
}

void unselectsAudio(Trial& trial) {
    TestedPlayer player(trial);
    startLanguages(trial, player);
    selectComponent(trial, player, AUDIO, audioThatIs(trial, player, 1).pid, false);
    awaitChange(trial, player, AUDIO, "after UnselectAVAudioComponent");
    trial.require(countActive(trial, player, AUDIO) == 0, "an audio component is active after it was unselected",
                  "none");
    player.awaitPosition(player.position() + 300);
}

void unselectsByType(Trial& trial) {
    TestedPlayer player(trial);
    startLanguages(trial, player);
    player.select([&] { return trial.platform.unselectByType(player.handle(), AUDIO); });
    awaitChange(trial, player, AUDIO, "after UnselectAVComponentByType");
    trial.require(countActive(trial, player, AUDIO) == 0, "an audio component is active after all were unselected",
                  "none");
}

void selectsDefault(Trial& trial) {
    TestedPlayer player(trial);
    startLanguages(trial, player);
    player.select([&] { return trial.platform.unselectByType(player.handle(), AUDIO); });
    awaitChange(trial, player, AUDIO, "after UnselectAVComponentByType");
    player.select([&] { return trial.platform.selectDefault(player.handle(), AUDIO); });
    awaitChange(trial, player, AUDIO, "after SelectDefaultAVComponent");
    trial.require(countActive(trial, player, AUDIO) == 1, "not one audio component is active", "the preferred one");
}

void refusesOtherTypes(Trial& trial) {
    TestedPlayer player(trial);
    startLanguages(trial, player);
    for (const int type : {-1, 3, 1000}) {
        const int selected = trial.platform.selectDefault(player.handle(), type);
        const int unselected = trial.platform.unselectByType(player.handle(), type);
        trial.require(selected != 1 && unselected != 1,
                      "SelectDefaultAVComponent or UnselectAVComponentByType returned 1 for type " +
                          std::to_string(type),
                      "another result: refused");
    }
    trial.wait(milliseconds(300));
    trial.require(!player.hasReport(eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED),
                  "SELECTED_COMPONENT_CHANGED came: " + player.story(), "no report for a type that is none");
}

void unknownComponent(Trial& trial) {
    TestedPlayer player(trial);
    startLanguages(trial, player);
    selectComponent(trial, player, AUDIO, 54'321, true);
    trial.wait(milliseconds(300));
    trial.require(countActive(trial, player, AUDIO) == 1, "not one audio component is active",
                  "the one that was active before");
    player.awaitPosition(player.position() + 200);
}

} // namespace

std::vector<Check> selectionChecks() {
    const char* const header = "medialib.h";
    const char* const promise =
        "Selects or unselects one component; SELECTED_COMPONENT_CHANGED is reported when it has happened.";
    std::vector<Check> checks = {
        {"component-is-selected", header, promise, "viewers cannot choose the language",
         "Selects the other of two audio tracks, waits for the report, looks which is active.", selectsAudio},
        {"component-is-unselected", header, promise, "the audio cannot be switched off",
         "Unselects the active audio track.", unselectsAudio},
        {"component-unselected-by-type", header, "Unselects whatever component of the type is active.",
         "the audio cannot be switched off", "Unselects audio by its type.", unselectsByType},
        {"component-default", header, "Selects the component that the television prefers.",
         "audio that was switched off cannot be switched on again", "Unselects audio, then selects the default.",
         selectsDefault},
        {"component-type-refused", header, "type: 0 video, 1 audio, 2 subtitle; others are refused.",
         "a page's wrong number changes the audio", "Gives the types -1, 3 and 1000.", refusesOtherTypes},
        {"component-unknown", header,
         "component: a record of the framework's collections, valid for the length of the call.",
         "a component of a former film switches the audio off", "Selects a pid that the media does not have.",
         unknownComponent},
    };
    for (Check& check : checks) {
        check.feature = "components";
        check.needs = {"play-starts", "position-is-milliseconds", "components-are-listed"};
    }
    checks[3].needs.push_back("component-unselected-by-type");
    return checks;
}

} // namespace compliance
