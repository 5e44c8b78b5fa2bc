#include "server/ServerFault.h"

#include <algorithm>
#include <fnmatch.h>
#include <sstream>

namespace tv {

namespace {

constexpr uint64_t longestDelayMs = uint64_t{24} * 3600 * 1000;

std::optional<uint64_t> readNumber(const std::string& text) {
    const bool isNumber =
        !text.empty() && text.size() <= 15 && text.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? std::optional<uint64_t>(std::stoull(text)) : std::nullopt;
}

bool isBetween(const std::optional<uint64_t>& number, uint64_t least, uint64_t most) {
    return number && *number >= least && *number <= most;
}

/** @return false when the part is no fault */
bool readPart(const std::string& part, ServerFault& fault) {
    const size_t colon = part.find(':');
    const std::string name = part.substr(0, colon);
    if (colon == std::string::npos) {
        fault.redirect |= name == "redirect";
        fault.ignoreRanges |= name == "norange";
        fault.silent |= name == "silent";
        return name == "redirect" || name == "norange" || name == "silent";
    }
    const std::string value = part.substr(colon + 1);
    const std::optional<uint64_t> number = readNumber(value);
    if (name == "type" && !value.empty() && std::all_of(value.begin(), value.end(), [](char c) { return c > ' '; })) {
        fault.type = value;
    } else if (name == "delay" && isBetween(number, 0, longestDelayMs)) {
        fault.delayMs = static_cast<int>(*number);
    } else if (name == "status" && isBetween(number, 200, 599)) {
        fault.status = static_cast<int>(*number);
    } else if (name == "throttle" && isBetween(number, 1, UINT64_MAX)) {
        fault.bytesPerSecond = *number;
    } else if (name == "cut" && number) {
        fault.cut = number;
    } else if (name == "stall" && number) {
        fault.stall = number;
    } else {
        return false;
    }
    return true;
}

} // namespace

std::optional<ServerFault> parseServerFault(const std::string& text, std::string& wrong) {
    ServerFault fault;
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, ',');) {
        if (!part.empty() && !readPart(part, fault)) {
            wrong = part;
            return std::nullopt;
        }
    }
    return fault;
}

ServerFault faultFor(const std::vector<ServerFaultRule>& rules, const std::vector<std::string>& names) {
    for (const ServerFaultRule& rule : rules) {
        for (const std::string& name : names) {
            if (fnmatch(rule.pattern.c_str(), name.c_str(), 0) == 0) {
                return rule.fault;
            }
        }
    }
    return {};
}

} // namespace tv
