/** What a server does wrong on request, so that pages can be tested against it. */
#ifndef SERVERFAULT_H
#define SERVERFAULT_H

#include "base/Result.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tv {

/** How long a server leaves a request without a response: threads come back from clients that have gone. */
constexpr int longestSilenceMs = 300 * 1000;

struct ServerFault {
    int delayMs = 0;               ///< before the response
    int status = 0;                ///< HTTP status code of a response without the file; 0 for the true one
    std::string type;              ///< Content-Type; empty for the true one
    std::optional<uint64_t> cut;   ///< the connection ends at this byte of the file
    std::optional<uint64_t> stall; ///< nothing more is sent from this byte of the file on; the connection stays
    uint64_t bytesPerSecond = 0;   ///< speed of the content; 0 for as fast as possible
    bool redirect = false;         ///< to the same address without this fault
    bool ignoreRanges = false;     ///< always the whole file
    bool silent = false;           ///< no response at all
};

/** The addresses that have a fault. */
struct ServerFaultRule {
    std::string pattern; ///< of the path or of the whole address, as in a shell: "*.m4s" or "/media/film.mp4"
    ServerFault fault;
};

/** @return the fault of the first rule that matches one of the names; else no fault */
ServerFault faultFor(const std::vector<ServerFaultRule>& rules, const std::vector<std::string>& names);

/**
 * Reads faults as a person writes them: "delay:2000,throttle:50000".
 * @param text words of serverFaultForms(), separated by commas
 * @return the fault; or the word that is not one of them
 */
Result<ServerFault, std::string> parseServerFault(const std::string& text);

/** @return the words that a fault consists of, for people: "delay:MS, status:CODE, ..." */
std::string serverFaultForms();

} // namespace tv

#endif
