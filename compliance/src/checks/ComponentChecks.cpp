// The lists of medialib_components.h.
#include "checks/Checks.h"
#include "checks/medialib/Components.h"

#include <cstring>

namespace compliance {
namespace {

constexpr int TYPES[] = {AV_COMPONENT_TYPE_VIDEO, AV_COMPONENT_TYPE_AUDIO, AV_COMPONENT_TYPE_SUBTITLE};

void functionExists(Trial& trial) {
    trial.require(trial.platform.missing("medialib_components.h").empty(),
                  "no library has Hbbtv_AL_MediaPlayerGetComponents",
                  "the function, or \"components = no\" in the profile");
}

void noneWithoutMedia(Trial& trial) {
    TestedPlayer player(trial);
    for (const int type : TYPES) {
        const size_t count = listComponents(trial, player, type).size();
        trial.require(count == 0, std::to_string(count) + " components of type " + std::to_string(type), "0");
    }
    Hbbtv_AL_ComponentInfo info = {};
    for (const int type : {-1, 3}) {
        const int count = trial.platform.getComponents(player.handle(), type, &info, 1);
        trial.require(count == 0, std::to_string(count) + " components of type " + std::to_string(type), "0");
    }
}

void listsComponents(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::LANGUAGES));
    const auto has = [&](int type, size_t count) {
        const bool matches = trial.comesToHold([&] { return listComponents(trial, player, type).size() == count; });
        trial.require(matches,
                      std::to_string(listComponents(trial, player, type).size()) + " components of type " +
                          std::to_string(type),
                      std::to_string(count));
    };
    has(AV_COMPONENT_TYPE_VIDEO, 1);
    has(AV_COMPONENT_TYPE_AUDIO, 2);
    const auto audio = listComponents(trial, player, AV_COMPONENT_TYPE_AUDIO);
    trial.require(audio[0].pid != audio[1].pid, "both audio components have pid " + std::to_string(audio[0].pid),
                  "a pid of its own for each");
}

template <size_t SIZE> bool isTerminated(const char (&text)[SIZE]) {
    return std::memchr(text, '\0', SIZE) != nullptr;
}

void requireFields(Trial& trial, const Hbbtv_AL_ComponentInfo& info, int type) {
    const auto require = [&](bool holds, const std::string& came, const std::string& expected) {
        trial.require(holds, "a component of type " + std::to_string(type) + " has " + came, expected);
    };
    require(info.type == type, "type " + std::to_string(info.type), "the type that was asked for");
    require(info.active == 0 || info.active == 1, "active " + std::to_string(info.active), "0 or 1");
    require(info.encrypted == 0, "encrypted " + std::to_string(info.encrypted), "0 for a clear film");
    require(info.componentTag >= -1 && info.componentTag <= 255, "componentTag " + std::to_string(info.componentTag),
            "-1, or a tag of 0 to 255");
    require(isTerminated(info.encoding) && isTerminated(info.language), "a text without its end",
            "zero-terminated texts");
    if (type == AV_COMPONENT_TYPE_VIDEO) {
        const bool isPlausible = info.aspectRatio == 0 || (info.aspectRatio > 1.7 && info.aspectRatio < 1.85);
        require(isPlausible, "aspectRatio " + std::to_string(info.aspectRatio), "1.78 for a film of 320x180, or 0");
    } else {
        const bool isCode = std::strlen(info.language) == 3;
        require(isCode, std::string("language \"") + info.language + "\"",
                "an ISO 639-2 code of three letters, or und");
        require(info.audioChannels >= 0 && info.audioChannels <= 64,
                "audioChannels " + std::to_string(info.audioChannels), "a number of channels, or 0");
    }
}

void fieldsAreInRange(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::LANGUAGES));
    player.awaitPosition(200);
    for (const int type : TYPES) {
        for (const Hbbtv_AL_ComponentInfo& info : listComponents(trial, player, type)) {
            requireFields(trial, info, type);
        }
    }
    const auto audio = listComponents(trial, player, AV_COMPONENT_TYPE_AUDIO);
    const std::string languages = std::string(audio[0].language) + ' ' + audio[1].language;
    trial.require(languages == "eng deu" || languages == "eng ger", "the languages are " + languages,
                  "eng and deu (or ger), in the order of the media");
}

void oneIsActive(Trial& trial) {
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::LANGUAGES));
    for (const int type : {AV_COMPONENT_TYPE_VIDEO, AV_COMPONENT_TYPE_AUDIO}) {
        trial.require(trial.comesToHold([&] { return countActive(trial, player, type) == 1; }, std::chrono::seconds(5)),
                      std::to_string(countActive(trial, player, type)) + " components of type " + std::to_string(type) +
                          " are active",
                      "1, the one that is seen or heard");
    }
}

void keepsToCapacity(Trial& trial) {
    constexpr int UNTOUCHED = 0x5A5A5A5A;
    TestedPlayer player(trial);
    player.startPlaying(trial.server.url(media::LANGUAGES));
    trial.comesToHold([&] { return listComponents(trial, player, AV_COMPONENT_TYPE_AUDIO).size() == 2; });
    Hbbtv_AL_ComponentInfo infos[2] = {};
    infos[1].pid = UNTOUCHED;
    int count = trial.platform.getComponents(player.handle(), AV_COMPONENT_TYPE_AUDIO, infos, 1);
    trial.require(count == 2, "GetComponents returned " + std::to_string(count) + " for a capacity of 1",
                  "2, how many there are");
    trial.require(infos[1].pid == UNTOUCHED, "a second component was written to room for one",
                  "those beyond the capacity left out");
    count = trial.platform.getComponents(player.handle(), AV_COMPONENT_TYPE_AUDIO,
                                         static_cast<Hbbtv_AL_ComponentInfo*>(nullptr), 0);
    trial.require(count == 2, "GetComponents returned " + std::to_string(count) + " for null and a capacity of 0", "2");
}

} // namespace

std::vector<Check> componentChecks() {
    const char* const header = "medialib_components.h";
    const std::vector<const char*> needs = {"play-starts", "components-are-listed"};
    std::vector<Check> checks = {
        {"components-function-exists", header, "Lists the components of one type in the media that the player holds.",
         "a page finds no languages and no subtitles", "Looks the function up by its name.", functionExists},
        {"components-none-without-media",
         header,
         "How many there are; 0 without media.",
         "a page offers languages of a film that is gone",
         "Lists before there is a source, and types that are none.",
         noneWithoutMedia,
         {},
         "",
         {"components-function-exists"}},
        {"components-are-listed",
         header,
         "Lists the components of one type in the media that the player holds.",
         "a page finds no languages",
         "Plays a film with two audio tracks and lists.",
         listsComponents,
         {},
         "",
         {"play-starts", "components-function-exists"}},
        {"components-fields",
         header,
         "One component of a player's media. Fields that a type does not have are 0 or empty.",
         "languages have wrong names, pictures wrong shapes",
         "Looks at each field of each component.",
         fieldsAreInRange,
         {},
         "",
         {"play-starts", "components-are-listed", "position-is-milliseconds"}},
        {"components-one-is-active",
         header,
         "active: 1 when it is the one that is seen or heard.",
         "the page ticks the wrong language",
         "Plays and counts the active ones.",
         oneIsActive,
         {},
         "",
         needs},
        {"components-capacity",
         header,
         "How many there are. Those beyond `capacity` are left out; components may be null when `capacity` is 0.",
         "the browser crashes at a film with many languages",
         "Asks for two with room for one, and with none.",
         keepsToCapacity,
         {},
         "",
         needs},
    };
    for (Check& check : checks) {
        check.feature = "components";
    }
    return checks;
}

} // namespace compliance
