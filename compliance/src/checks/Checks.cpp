#include "checks/Checks.h"

#include <iterator>

namespace compliance {

const std::vector<Check>& allChecks() {
    static const std::vector<Check> checks = [] {
        std::vector<Check> all;
        for (const auto& room :
             {handleChecks,         resourceChecks,  callbackChecks,        reportRules,  orderRules,
              startChecks,          pauseChecks,     positionChecks,        seekChecks,   speedChecks,
              waitingChecks,        errorChecks,     connectionErrorChecks, windowChecks, subtitleChecks,
              streamChecks,         selectionChecks, componentChecks,       logChecks,    channelChecks,
              synchronisationChecks}) {
            std::vector<Check> some = room();
            std::move(some.begin(), some.end(), std::back_inserter(all));
        }
        return all;
    }();
    return checks;
}

} // namespace compliance
