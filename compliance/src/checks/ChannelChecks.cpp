// The message channel of hbbtvMsg.h.
#include "checks/Checks.h"
#include "kit/Traces.h"
#include "kit/Trial.h"

namespace compliance {
namespace {

void functionExists(Trial& trial) {
    trial.require(trial.platform.missing("hbbtvMsg.h").empty(), "no library has openCommunicationChannel",
                  "all functions of hbbtvMsg.h");
}

void opensOnce(Trial& trial) {
    const int first = trial.platform.openChannel(static_cast<void*>(nullptr));
    trial.require(first == 0, "openCommunicationChannel returned " + std::to_string(first), "0");
    trial.wait(milliseconds(200));
    const long threads = countThreads();
    const long descriptors = countDescriptors();
    for (int i = 0; i < 20; ++i) {
        const int again = trial.platform.openChannel(static_cast<void*>(nullptr));
        trial.require(again == 0, "it returned " + std::to_string(again) + " when the channel was open", "0");
    }
    trial.wait(milliseconds(200));
    trial.require(countThreads() <= threads && countDescriptors() <= descriptors,
                  std::to_string(countThreads() - threads) + " threads and " +
                      std::to_string(countDescriptors() - descriptors) + " descriptors more",
                  "no more than after the first time");
}

} // namespace

std::vector<Check> channelChecks() {
    const char* const header = "hbbtvMsg.h";
    return {
        {"channel-function-exists", header, "Opens the process's message channel.", "the plug-in is not loaded at all",
         "Looks the function up by its name.", functionExists},
        {"channel-opens-once",
         header,
         "Opening an open one changes nothing. 0 on success.",
         "each page with media costs a descriptor, until none is left",
         "Opens it 21 times and counts threads and descriptors.",
         opensOnce,
         {},
         "",
         {"channel-function-exists"}},
    };
}

} // namespace compliance
