/**
 * What a server does wrong on request, so that pages can be tried against it.
 */
#ifndef SERVERFAULT_H
#define SERVERFAULT_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tv {

struct ServerFault {
    int delayMs = 0;               /**< before the answer */
    int status = 0;                /**< HTTP status of an answer without content; 0 for the true one */
    std::string type;              /**< Content-Type; empty for the true one */
    std::optional<uint64_t> cut;   /**< the connection ends at this byte of the file */
    std::optional<uint64_t> stall; /**< nothing more comes from this byte of the file on; the connection stays */
    uint64_t bytesPerSecond = 0;   /**< speed of the content; 0 for as fast as it goes */
    bool redirect = false;         /**< to the same address without this fault */
    bool ignoreRanges = false;     /**< always the whole file */
    bool silent = false;           /**< no answer at all */
};

/** Which addresses have a fault. */
struct ServerFaultRule {
    std::string pattern; /**< of the path or of the whole address, as a shell has it: "*.m4s" or "/media/film.mp4" */
    ServerFault fault;
};

/** @return the fault of the first rule that fits one of the names; else none */
ServerFault faultFor(const std::vector<ServerFaultRule>& rules, const std::vector<std::string>& names);

/**
 * Reads faults as a person writes them: "delay:2000,throttle:50000".
 * @param text any of delay:MS, status:CODE, type:MIME, cut:BYTE, stall:BYTE, throttle:BYTES_PER_SECOND, redirect,
 *             norange, silent, with commas between them
 * @param wrong receives the part that is none of these
 * @return nothing when there is such a part
 */
std::optional<ServerFault> parseServerFault(const std::string& text, std::string& wrong);

} // namespace tv

#endif
