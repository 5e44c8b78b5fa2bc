#include "kit/Journal.h"

#include <chrono>
#include <cstdio>

namespace compliance {
namespace {

constexpr size_t LAST_CALL_SIZE = 256;
constexpr size_t ENTRIES_SHOWN = 10;

int64_t milliseconds() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
}

bool hasValue(const Entry& entry) {
    const auto command = static_cast<Command>(entry.what);
    return command == Command::SEEK || command == Command::SET_SPEED;
}

} // namespace

const char* commandName(Command command) {
    static const char* const names[] = {"Open",        "Close",     "SetUserAgent", "AddCallback", "RemoveCallback",
                                        "AddSubtitle", "SetSource", "SetWindow",    "Play",        "Pause",
                                        "Resume",      "Stop",      "Seek",         "SetSpeed",    "selection"};
    return names[static_cast<size_t>(command)];
}

std::string eventName(int event) {
    static const char* const names[] = {"",
                                        "STOPPED",
                                        "PLAYING",
                                        "PAUSED",
                                        "CONNECTING",
                                        "BUFFERING",
                                        "FINISHED",
                                        "POSITION_CHANGED",
                                        "SPEED_CHANGED",
                                        "ERROR",
                                        "SELECTED_COMPONENT_CHANGED",
                                        "PARENTAL_RATING_CHANGED",
                                        "DRM_RIGHTS_ERROR"};
    return event > 0 && event < eMEDIA_CALLBACK_MAX ? names[event] : "event " + std::to_string(event);
}

std::string describe(const Entry& entry) {
    const std::string value = ' ' + std::to_string(entry.value);
    switch (entry.kind) {
    case Entry::CALL:
        return commandName(static_cast<Command>(entry.what)) + (hasValue(entry) ? value : "");
    case Entry::RETURN:
        return std::string(commandName(static_cast<Command>(entry.what))) + " returned" + value;
    case Entry::REPORT:
        return "report " + eventName(entry.what) + (entry.what >= eMEDIA_CALLBACK_ERROR ? value : "");
    default:
        return "end of report " + eventName(entry.what);
    }
}

std::string describeUpTo(const Entries& entries, size_t last) {
    std::string text;
    size_t shown = 0;
    for (size_t i = last + 1; i-- > 0 && shown < ENTRIES_SHOWN;) {
        const Entry& entry = entries[i];
        if (entry.player != entries[last].player || entry.kind == Entry::REPORT_END) {
            continue;
        }
        text.insert(0, (i == 0 ? "" : ", ") + describe(entry) + " (" + std::to_string(entry.ms) + " ms)");
        ++shown;
    }
    return text.compare(0, 2, ", ") == 0 ? text.substr(2) : text;
}

Journal::Journal(char* lastCall) : m_lastCall(lastCall), m_start(milliseconds()) {}

void Journal::add(Entry entry) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    entry.ms = milliseconds() - m_start;
    m_entries.push_back(entry);
    if (entry.kind == Entry::CALL || entry.kind == Entry::RETURN) {
        std::snprintf(m_lastCall, LAST_CALL_SIZE, "%s%s", entry.kind == Entry::CALL ? "in " : "after ",
                      describe(entry).c_str());
    }
}

Entries Journal::entries() const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_entries;
}

void Journal::noteCall(const std::string& text) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::snprintf(m_lastCall, LAST_CALL_SIZE, "in %s", text.c_str());
}

} // namespace compliance
