#include "kit/Profile.h"

#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>

namespace compliance {
namespace {

constexpr int LARGEST_NUMBER = 100'000;

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r");
    const size_t last = text.find_last_not_of(" \t\r");
    return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

/** Takes one of two words. @throws std::invalid_argument naming both */
void setChoice(bool& field, const std::string& value, const std::string& forTrue, const std::string& forFalse) {
    if (value != forTrue && value != forFalse) {
        throw std::invalid_argument("write \"" + forTrue + "\" or \"" + forFalse + "\"");
    }
    field = value == forTrue;
}

int number(const std::string& value, int least) {
    const bool digits =
        !value.empty() && value.size() < 7 && value.find_first_not_of("0123456789") == std::string::npos;
    const int result = digits ? std::stoi(value) : -1;
    if (result < least || result > LARGEST_NUMBER) {
        throw std::invalid_argument("write a whole number from " + std::to_string(least) + " to " +
                                    std::to_string(LARGEST_NUMBER));
    }
    return result;
}

using Setter = std::function<void(Profile&, const std::string&)>;

Setter yesOrNo(bool Profile::*field) {
    return [field](Profile& profile, const std::string& value) { setChoice(profile.*field, value, "yes", "no"); };
}

const std::map<std::string, Setter>& setters() {
    static const std::map<std::string, Setter> table = {
        {"trick-play", yesOrNo(&Profile::trickPlay)},
        {"reverse", yesOrNo(&Profile::reverse)},
        {"subtitles", yesOrNo(&Profile::subtitles)},
        {"components", yesOrNo(&Profile::components)},
        {"hls", yesOrNo(&Profile::hls)},
        {"dash", yesOrNo(&Profile::dash)},
        {"remove-callback",
         [](Profile& profile, const std::string& value) {
             setChoice(profile.removeCallbackWaits, value, "waits", "may-return-early");
         }},
        {"schemes",
         [](Profile& profile, const std::string& value) { setChoice(profile.onlyHttp, value, "http https", "any"); }},
        {"players", [](Profile& profile, const std::string& value) { profile.players = number(value, 1); }},
        {"seek-accuracy",
         [](Profile& profile, const std::string& value) { profile.seekAccuracyMs = number(value, 0); }},
        {"patience", [](Profile& profile, const std::string& value) {
             profile.patience = std::chrono::seconds(number(value, 1));
         }}};
    return table;
}

void readLine(Profile& profile, const std::string& line) {
    const size_t equals = line.find('=');
    const std::string key = trimmed(line.substr(0, equals));
    const auto setter = setters().find(key);
    if (equals == std::string::npos || setter == setters().end()) {
        std::string known;
        for (const auto& [name, unused] : setters()) {
            known += (known.empty() ? "" : ", ") + name;
        }
        throw std::invalid_argument("\"" + line + "\" is no line of a profile: write KEY = VALUE with one of " + known);
    }
    try {
        setter->second(profile, trimmed(line.substr(equals + 1)));
    } catch (const std::invalid_argument& problem) {
        throw std::invalid_argument("\"" + line + "\": " + problem.what());
    }
}

} // namespace

Profile Profile::read(const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        throw std::runtime_error("the profile " + path + " cannot be read");
    }
    Profile profile;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        line = trimmed(line.substr(0, line.find('#')));
        if (line.empty()) {
            continue;
        }
        try {
            readLine(profile, line);
        } catch (const std::invalid_argument& problem) {
            throw std::runtime_error(path + ", line " + std::to_string(number) + ": " + problem.what());
        }
    }
    return profile;
}

bool Profile::offers(const std::string& feature) const {
    const std::map<std::string, bool> features = {
        {"", true},
        {"trick-play", trickPlay},
        {"reverse", reverse},
        {"subtitles", subtitles},
        {"components", components},
        {"hls", hls},
        {"dash", dash},
        {"remove-callback", removeCallbackWaits},
        {"schemes", onlyHttp},
        {"players", players > 1},
    };
    return features.at(feature);
}

} // namespace compliance
