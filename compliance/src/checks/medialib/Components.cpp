#include "checks/medialib/Components.h"

#include <algorithm>

namespace compliance {

std::vector<Hbbtv_AL_ComponentInfo> listComponents(const Trial& trial, const TestedPlayer& player, int type) {
    std::vector<Hbbtv_AL_ComponentInfo> list(256);
    const int count = trial.platform.getComponents(player.handle(), type, list.data(), static_cast<int>(list.size()));
    trial.require(count >= 0, "GetComponents returned " + std::to_string(count), "how many components there are");
    list.resize(std::min(list.size(), static_cast<size_t>(count)));
    return list;
}

int countActive(const Trial& trial, const TestedPlayer& player, int type) {
    const auto list = listComponents(trial, player, type);
    return static_cast<int>(std::count_if(list.begin(), list.end(), [](const auto& info) { return info.active == 1; }));
}

int selectComponent(const Trial& trial, TestedPlayer& player, int type, int pid, bool select) {
    char encoding[] = "";
    char language[] = "und";
    AVComponent common = {static_cast<AVComponentType>(type), encoding, 0, -1, pid};
    AVVideoComponent video = {&common, 0};
    AVAudioComponent audio = {&common, language, 0, 0};
    AVSubtitleComponent subtitle = {&common, language, 0};
    const Platform& platform = trial.platform;
    const int handle = player.handle();
    return player.select([&] {
        switch (type) {
        case AV_COMPONENT_TYPE_VIDEO:
            return select ? platform.selectVideo(handle, &video) : platform.unselectVideo(handle, &video);
        case AV_COMPONENT_TYPE_AUDIO:
            return select ? platform.selectAudio(handle, &audio) : platform.unselectAudio(handle, &audio);
        default:
            return select ? platform.selectSubtitle(handle, &subtitle) : platform.unselectSubtitle(handle, &subtitle);
        }
    });
}

int addTrack(TestedPlayer& player, const std::string& url, const std::string& language, const std::string& label) {
    sub_properties_t track = {};
    url.copy(track.url, sizeof track.url - 1);
    language.copy(track.lang, sizeof track.lang - 1);
    label.copy(track.laber, sizeof track.laber - 1);
    return player.addSubtitle(track);
}

} // namespace compliance
