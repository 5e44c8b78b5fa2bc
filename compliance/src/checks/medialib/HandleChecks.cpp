// The handles of players: what Open gives, what is refused, when one comes back.
#include "checks/Checks.h"
#include "kit/TestedPlayer.h"

#include <set>

namespace compliance {
namespace {

void hasAllFunctions(Trial& trial, const char* header) {
    std::string names;
    for (const std::string& name : trial.platform.missing(header)) {
        names += (names.empty() ? "" : ", ") + name;
    }
    trial.require(names.empty(), "no library has " + names, "all functions of " + std::string(header));
}

void functionsExist(Trial& trial) {
    hasAllFunctions(trial, "medialib.h");
}

void openGivesHandle(Trial& trial) {
    std::set<int> handles;
    std::vector<int> opened;
    for (int i = 0; i < 3; ++i) {
        int handle = -1;
        trial.platform.open(&handle);
        trial.require(handle >= 0, "Open wrote " + std::to_string(handle), "a handle of 0 or more");
        trial.require(handles.insert(handle).second, "Open wrote " + std::to_string(handle) + " for two players",
                      "a handle of its own for each open player");
        opened.push_back(handle);
    }
    for (const int handle : opened) {
        trial.platform.close(handle);
    }
}

/** Each command on a handle that is not open; the player that is open must not notice. */
void refuses(Trial& trial, int handle, const std::string& which) {
    const Platform& platform = trial.platform;
    const std::string url = trial.server.url(media::SHORT);
    const auto refused = [&](const char* function, int result) {
        trial.require(result == 0, std::string(function) + " returned " + std::to_string(result) + " for " + which,
                      "0: refused");
    };
    platform.setSource(handle, url.c_str());
    refused("Play", platform.play(handle, 0));
    refused("Pause", platform.pause(handle));
    refused("Resume", platform.resume(handle));
    refused("Seek", platform.seek(handle, 1000));
    refused("Stop", platform.stop(handle));
    const int window = platform.setWindow(handle, 0, 0, 320, 180);
    trial.require(window != 1, "SetWindow returned 1 for " + which, "another result than 1");
    const int64_t position = platform.getPosition(handle);
    trial.require(position == -1, "GetPosition returned " + std::to_string(position) + " for " + which, "-1");
    const int duration = platform.getDuration(handle);
    trial.require(duration == -1, "GetDuration returned " + std::to_string(duration) + " for " + which, "-1");
    platform.setSpeed(handle, 1.0);
    platform.getSpeed(handle);
    platform.setUserAgent(handle);
    platform.selectDefault(handle, AV_COMPONENT_TYPE_AUDIO);
    platform.unselectByType(handle, AV_COMPONENT_TYPE_AUDIO);
    platform.removeCallback(handle);
    platform.close(handle);
}

void refusesOtherHandles(Trial& trial) {
    int open = -1;
    int closed = -1;
    trial.platform.open(&open);
    trial.platform.open(&closed);
    trial.platform.close(closed);
    refuses(trial, -1, "the handle -1");
    refuses(trial, closed, "the handle " + std::to_string(closed) + ", which was closed");
    refuses(trial, 1'000'000'000, "the handle 1000000000, which Open never gave");
    trial.platform.close(open);
}

void handlesDoNotComeBack(Trial& trial) {
    std::set<int> handles;
    for (int i = 0; i < 100; ++i) {
        int handle = -1;
        trial.platform.open(&handle);
        trial.platform.close(handle);
        trial.require(handles.insert(handle).second,
                      "Open gave the handle " + std::to_string(handle) + " again, which was closed before",
                      "a handle that no player had before");
    }
}

void resourceCallback(Trial& trial) {
    for (int i = 0; i < 2; ++i) {
        const int result = trial.platform.addResourceCallback();
        trial.require(result == 1, "AddResourceCallback returned " + std::to_string(result), "1");
    }
}

} // namespace

std::vector<Check> handleChecks() {
    const char* const header = "medialib.h";
    return {
        {"functions-exist", header, "Whoever ports the plug-in implements these functions with C linkage.",
         "the plug-in is not loaded at all: its object is a white rectangle", "Looks each function up by its name.",
         functionsExist},
        {"open-gives-handle", header, "player receives the handle, 0 or more.",
         "commands go to no player, or two objects of a page fight for one", "Opens three players at a time.",
         openGivesHandle},
        {"handle-refused", header, "A handle that is not open (-1 among them) is refused.",
         "the object of a page that was left moves the player of the next page",
         "Gives every command the handle -1, one that was closed, and one that never was.", refusesOtherHandles},
        {"handle-not-reused", header, "A handle that was closed is not given to a later player.",
         "what comes late for a player that is gone reaches the next page's player",
         "Opens and closes 100 players and compares their handles.", handlesDoNotComeBack},
        {"resource-callback", header, "Registers for decoder-resource messages of the platform. @return 1 on success",
         "the plug-in logs a failure and hears nothing of lost decoders", "Calls it twice.", resourceCallback},
    };
}

} // namespace compliance
