/** Runs one check in a process of its own: what it breaks stays there, and what hangs is ended. */
#ifndef COMPLIANCE_CHECKPROCESS_H
#define COMPLIANCE_CHECKPROCESS_H

#include "kit/Check.h"
#include "kit/Profile.h"

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

namespace compliance {

/** What all checks of a run have in common. */
struct Setting {
    std::vector<std::string> libraries;
    Profile profile;
    std::string mediaFolder;
    std::string address = "127.0.0.1";
    bool showOutput = false;
};

class CheckProcess {
public:
    /** @throws std::runtime_error when the system has no process to give */
    CheckProcess(const Check& check, const Setting& setting);
    ~CheckProcess();
    CheckProcess(const CheckProcess&) = delete;
    CheckProcess& operator=(const CheckProcess&) = delete;

    const Check& check() const { return m_check; }

    /** Readable when there is more of the outcome, or its end. */
    int descriptor() const { return m_pipe; }

    /** Reads what there is. @return false when that was the end */
    bool read();

    /** Ends the process when its time is over. @return true when it did */
    bool endWhenLate();

    /** After read() returned false. Writes the journal of the process. */
    Result outcome(Entries& entries);

private:
    [[noreturn]] void runChild(int pipe, const Setting& setting);
    std::string wayOfEnd(int status) const;

    const Check& m_check;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    pid_t m_process = -1;
    int m_pipe = -1;
    char* m_lastCall; // shared with the process
    bool m_isLate = false;
    std::string m_received;
};

} // namespace compliance

#endif
