#include "server/ServerFault.h"

#include <algorithm>
#include <fnmatch.h>
#include <sstream>

namespace tv {

namespace {

constexpr uint64_t longestDelayMs = uint64_t{24} * 3600 * 1000;
constexpr size_t mostDigits = 15;

/** @return false when the text is not a number from `least` to `most` */
template <typename Number> bool readNumber(const std::string& text, uint64_t least, uint64_t most, Number& number) {
    if (text.empty() || text.size() > mostDigits || text.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    const uint64_t value = std::stoull(text);
    if (value < least || value > most) {
        return false;
    }
    number = static_cast<Number>(value);
    return true;
}

bool readType(const std::string& text, std::string& type) {
    type = text;
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c > ' '; });
}

struct Word {
    const char* form; // NAME:VALUE, or NAME of a word that has no value
    bool (*read)(const std::string& value, ServerFault& fault);
};

const Word words[] = {
    {"delay:MS",
     [](const std::string& value, ServerFault& fault) { return readNumber(value, 0, longestDelayMs, fault.delayMs); }},
    {"status:CODE",
     [](const std::string& value, ServerFault& fault) { return readNumber(value, 200, 599, fault.status); }},
    {"type:MIME", [](const std::string& value, ServerFault& fault) { return readType(value, fault.type); }},
    {"cut:BYTE",
     [](const std::string& value, ServerFault& fault) { return readNumber(value, 0, UINT64_MAX, fault.cut); }},
    {"stall:BYTE",
     [](const std::string& value, ServerFault& fault) { return readNumber(value, 0, UINT64_MAX, fault.stall); }},
    {"throttle:BYTES_PER_SECOND",
     [](const std::string& value, ServerFault& fault) {
         return readNumber(value, 1, UINT64_MAX, fault.bytesPerSecond);
     }},
    {"redirect", [](const std::string& /*value*/, ServerFault& fault) { return fault.redirect = true; }},
    {"norange", [](const std::string& /*value*/, ServerFault& fault) { return fault.ignoreRanges = true; }},
    {"silent", [](const std::string& /*value*/, ServerFault& fault) { return fault.silent = true; }},
};

/** @return false when the text is not a word of a fault */
bool readWord(const std::string& text, ServerFault& fault) {
    const size_t colon = text.find(':');
    const bool hasValue = colon != std::string::npos;
    for (const Word& word : words) {
        const std::string form = word.form;
        const size_t formColon = form.find(':');
        if (form.substr(0, formColon) == text.substr(0, colon)) {
            return hasValue == (formColon != std::string::npos) &&
                   word.read(hasValue ? text.substr(colon + 1) : std::string(), fault);
        }
    }
    return false;
}

} // namespace

Result<ServerFault, std::string> parseServerFault(const std::string& text) {
    ServerFault fault;
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, ',');) {
        if (!part.empty() && !readWord(part, fault)) {
            return Failure{part};
        }
    }
    return fault;
}

std::string serverFaultForms() {
    std::string forms;
    for (const Word& word : words) {
        forms += (forms.empty() ? "" : ", ") + std::string(word.form);
    }
    return forms;
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
