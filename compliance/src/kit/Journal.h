/** What happened between the kit and the platform: each call and each report, in order. */
#ifndef COMPLIANCE_JOURNAL_H
#define COMPLIANCE_JOURNAL_H

#include "medialib.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace compliance {

enum class Command : int32_t {
    OPEN,
    CLOSE,
    SET_USER_AGENT,
    ADD_CALLBACK,
    REMOVE_CALLBACK,
    ADD_SUBTITLE,
    SET_SOURCE,
    SET_WINDOW,
    PLAY,
    PAUSE,
    RESUME,
    STOP,
    SEEK,
    SET_SPEED,
    SELECT
};

/** Where the data block of a report lies. */
enum class DataKind : int32_t { NONE, HEAP, STACK, STATIC };

/** One event. Of plain numbers, so that a process hands it to its parent as it is. */
struct Entry {
    enum Kind : int32_t { CALL, RETURN, REPORT, REPORT_END };
    Kind kind;
    int32_t player;    // number of the kit's player in its process, from 1
    int32_t what;      // Command of a call, event of a report
    int32_t value;     // argument of a call, its result, or a report's code
    int64_t ms;        // since the process began
    DataKind data;     // of a report
    int32_t ownThread; // 1 for a report on a thread that the kit made
    int32_t wrongId;   // 1 for a report whose playerId is not the handle
    int32_t wrongUser; // 1 for a report whose userData the kit never gave
};

/** The entries of one process. */
using Entries = std::vector<Entry>;

const char* commandName(Command command);
std::string eventName(int event);

/** @return an entry as people read it, for example "report ERROR 5" */
std::string describe(const Entry& entry);

/** @return the last few entries of a player that end with `last`, one after the other */
std::string describeUpTo(const Entries& entries, size_t last);

/** Threads: any. */
class Journal {
public:
    /** @param lastCall 256 bytes shared with the parent process: the call that a crash or a hang interrupts */
    explicit Journal(char* lastCall);

    void add(Entry entry);
    Entries entries() const;

    /** Notes a call that is not a player's command, for the report of a crash. */
    void noteCall(const std::string& text);

private:
    char* const m_lastCall;
    const int64_t m_start;
    mutable std::mutex m_mutex; // guards all below, and the text of m_lastCall
    Entries m_entries;
};

} // namespace compliance

#endif
