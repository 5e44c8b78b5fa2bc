#include "isolated.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <fstream>
#include <map>

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "symbolize=0:handle_sigtrap=1:handle_abort=1:detect_leaks=1:allocator_may_return_null=1:quarantine_size_mb="
           "8:malloc_context_size=8";
}
#endif

namespace {

constexpr size_t CASES_OF_A_PROCESS = 400;
// A case that takes longer is an endless loop, or waits for ever.
constexpr int MOST_SECONDS = 10; ///< of processor time
constexpr unsigned MOST_SECONDS_WAITING = 600;

struct Range {
    size_t from;
    size_t to;
};

struct Process {
    Range range;
    size_t* current; ///< shared with the process
    std::string output;
};

bool isUnderTest(const std::string& frame) {
    return frame.find("/hbbtv-plugins/") != std::string::npos;
}

bool isScripted(const std::string& frame) {
    return frame.find("/tests/scripted/") != std::string::npos;
}

/// @return the frames that a line of a sanitizer's stack stands for, "function /path/file.cpp:7"; several when inlined
const std::vector<std::string>& framesOf(const std::string& line) {
    static std::map<unsigned long, std::vector<std::string>> known;
    static const std::vector<std::string> none;
    const size_t address = line.find(" 0x");
    if (line.find("    #") != 0 || address == std::string::npos) {
        return none;
    }
    const unsigned long counter = strtoul(line.c_str() + address, nullptr, 16);
    std::vector<std::string>& frames = known[counter];
#if defined(__SANITIZE_ADDRESS__)
    if (frames.empty()) {
        // In this process, which has the same libraries at the same addresses, and each address only once.
        char text[4000] = "";
        __sanitizer_symbolize_pc(reinterpret_cast<void*>(counter), "%f %S", text, sizeof text - 1);
        for (const char* frame = text; *frame; frame += strlen(frame) + 1) {
            frames.push_back(frame);
        }
    }
#endif
    return frames;
}

/// @return "VideoPlugin::Play Transport.cpp:7"
std::string shortened(const std::string& frame) {
    const std::string function = frame.substr(0, frame.find_first_of("(< ", 1));
    return function + " " + frame.substr(frame.rfind('/') + 1);
}

/// What a sanitizer or the scripted platform has written of the failure.
Finding read(size_t number, int status, const std::string& output) {
    const auto after = [](const std::string& line, const char* text) {
        const size_t at = line.find(text);
        return at == std::string::npos ? std::string() : line.substr(at + strlen(text));
    };
    std::ifstream in(output);
    Finding finding = {number, WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status)) : "exit", {}};
    std::string line;
    size_t frames = 0;
    bool atStack = true; // the first stack, which is that of the failure
    while (std::getline(in, line)) {
        const std::string error = after(line, "ERROR: AddressSanitizer: ");
        const std::string behaviour = after(line, "runtime error: ");
        const std::string broken = after(line, ": Failure");
        if (finding.stack.empty() && !error.empty()) {
            finding.cause = error.substr(0, error.find_first_of(" :"));
            finding.stack.push_back(error.substr(0, 100));
        } else if (finding.stack.empty() && !behaviour.empty()) {
            finding.cause = behaviour;
            finding.stack.push_back(behaviour);
        } else if (finding.stack.empty() && line.find(": Failure") != std::string::npos) {
            finding.cause.clear();
            for (int i = 0; i < 5 && std::getline(in, line) && !line.empty() && line[0] != '='; ++i) {
                finding.cause += i < 3 ? line + " " : "";
                finding.stack.push_back(line);
            }
        } else if (finding.stack.empty() && line.find("ERROR: LeakSanitizer") != std::string::npos) {
            finding.cause = "leak";
            finding.stack.push_back("leak of what was allocated at");
        }
        for (const std::string& frame : framesOf(line)) {
            if (atStack && frames < 6 && (isUnderTest(frame) || (frames == 0 && isScripted(frame)))) {
                finding.stack.push_back("  " + shortened(frame));
                frames += isUnderTest(frame) ? 1 : 0;
                if (frames <= 2) {
                    finding.cause += " | " + shortened(frame).substr(0, shortened(frame).find(' '));
                }
            }
        }
        atStack = atStack && (frames == 0 || !line.empty());
    }
    return finding;
}

pid_t start(const Process& process, const std::function<void(size_t)>& run) {
    fflush(nullptr);
    const pid_t child = fork();
    if (child != 0) {
        return child;
    }
    const int file = open(process.output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    for (size_t i = process.range.from; i < process.range.to; ++i) {
        *process.current = i;
        const itimerval limit = {{0, 0}, {MOST_SECONDS, 0}};
        setitimer(ITIMER_PROF, &limit, nullptr);
        alarm(MOST_SECONDS_WAITING);
        run(i);
    }
    *process.current = process.range.to;
    exit(0); // looks for leaks
}

} // namespace

std::vector<Finding> runIsolated(size_t count, unsigned processes, const std::function<void(size_t)>& run) {
    GTEST_FLAG_SET(break_on_failure, true);
    std::deque<Range> ranges;
    for (size_t from = 0; from < count; from += CASES_OF_A_PROCESS) {
        ranges.push_back({from, std::min(from + CASES_OF_A_PROCESS, count)});
    }
    size_t* const slots = static_cast<size_t*>(
        mmap(nullptr, processes * sizeof(size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    std::deque<size_t*> free;
    for (unsigned i = 0; i < processes; ++i) {
        free.push_back(&slots[i]);
    }
    std::map<pid_t, Process> running;
    std::vector<Finding> findings;
    while (!ranges.empty() || !running.empty()) {
        while (!ranges.empty() && !free.empty()) {
            const std::string output =
                "/tmp/isolated." + std::to_string(getpid()) + "." + std::to_string(free.front() - slots);
            const Process process = {ranges.front(), free.front(), output};
            ranges.pop_front();
            free.pop_front();
            running[start(process, run)] = process;
        }
        int status = 0;
        const pid_t ended = wait(&status);
        const Process process = running.at(ended);
        running.erase(ended);
        free.push_back(process.current);
        const size_t at = *process.current;
        const Range& range = process.range;
        if (status == 0) {
            // all is well
        } else if (at < range.to) {
            findings.push_back(read(at, status, process.output));
            if (at + 1 < range.to) {
                ranges.push_front({at + 1, range.to});
            }
            if (at > range.from) {
                ranges.push_front({range.from, at}); // for their leaks, which nobody has looked for yet
            }
        } else if (range.to - range.from == 1) {
            findings.push_back(read(range.from, status, process.output));
        } else {
            const size_t middle = (range.from + range.to) / 2;
            ranges.push_front({range.from, middle});
            ranges.push_front({middle, range.to});
        }
        unlink(process.output.c_str());
    }
    munmap(slots, processes * sizeof(size_t));
    return findings;
}
