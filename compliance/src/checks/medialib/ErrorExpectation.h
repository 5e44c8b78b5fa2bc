/** Sources that cannot be played, and the errors that they have to end with. */
#ifndef COMPLIANCE_ERROREXPECTATION_H
#define COMPLIANCE_ERROREXPECTATION_H

#include "kit/TestedPlayer.h"

#include <set>

namespace compliance {

/** Error values of the A/V Control object. */
constexpr int ERROR_FORMAT = 0;
constexpr int ERROR_CONNECTION = 1;
constexpr int ERROR_UNIDENTIFIED = 2;
constexpr int ERROR_CORRUPT = 4;
constexpr int ERROR_NOT_AVAILABLE = 5;

/** Starts a source and fails unless it ends with one of the errors. */
void expectError(Trial& trial, const std::string& url, const std::set<int>& codes);

/** As expectError, but a player may also play what it can and come to the end. */
void expectErrorOrEnd(Trial& trial, const std::string& url, const std::set<int>& codes);

} // namespace compliance

#endif
