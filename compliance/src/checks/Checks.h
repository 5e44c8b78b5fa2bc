/** All checks, by the header whose contract they prove. */
#ifndef COMPLIANCE_CHECKS_H
#define COMPLIANCE_CHECKS_H

#include "kit/Check.h"

#include <vector>

namespace compliance {

/** @return all checks, in the order of the headers */
const std::vector<Check>& allChecks();

// One function for each file of checks.
std::vector<Check> handleChecks();
std::vector<Check> resourceChecks();
std::vector<Check> callbackChecks();
std::vector<Check> reportRules();
std::vector<Check> orderRules();
std::vector<Check> startChecks();
std::vector<Check> pauseChecks();
std::vector<Check> positionChecks();
std::vector<Check> seekChecks();
std::vector<Check> speedChecks();
std::vector<Check> waitingChecks();
std::vector<Check> errorChecks();
std::vector<Check> connectionErrorChecks();
std::vector<Check> windowChecks();
std::vector<Check> subtitleChecks();
std::vector<Check> streamChecks();
std::vector<Check> selectionChecks();
std::vector<Check> componentChecks();
std::vector<Check> logChecks();
std::vector<Check> channelChecks();
std::vector<Check> synchronisationChecks();

} // namespace compliance

#endif
