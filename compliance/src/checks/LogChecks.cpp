// The logger of tos_log.h.
#include "checks/Checks.h"
#include "kit/Traces.h"
#include "kit/Trial.h"

#include <atomic>
#include <vector>

namespace compliance {
namespace {

constexpr int MODULE = EN_MODEL_ID_AVCONTROL;
constexpr int THREADS = 8;
constexpr int LINES = 50;

void functionsExist(Trial& trial) {
    std::string names;
    for (const std::string& name : trial.platform.missing("tos_log.h")) {
        names += (names.empty() ? "" : ", ") + name;
    }
    trial.require(names.empty(), "no library has " + names, "all functions of tos_log.h");
}

void markIsStatic(Trial& trial) {
    const char* mark = trial.platform.logGetCmd(MODULE);
    trial.require(mark != nullptr, "log_get_cmd returned null", "static text, never null");
    const std::string text = mark ? mark : "";
    for (const int module : {0, 1, 1000, -1}) {
        trial.require(trial.platform.logGetCmd(module) != nullptr,
                      "log_get_cmd returned null for module " + std::to_string(module), "never null");
    }
    const char* again = trial.platform.logGetCmd(MODULE);
    trial.require(text == mark && text == again, "the mark changed from \"" + text + "\" to \"" + again + "\"",
                  "static text");
}

void answersFromMemory(Trial& trial) {
    constexpr int QUESTIONS = 10'000;
    constexpr long ALLOWED = 100;
    trial.platform.logIsOutput(MODULE, 2); // what is read once at first
    trial.platform.logIsOutfile(MODULE, 2);
    const long before = countReads();
    for (int i = 0; i < QUESTIONS; ++i) {
        trial.platform.logIsOutput(MODULE, 2 + i % 4);
        trial.platform.logIsOutfile(MODULE, 2 + i % 4);
    }
    const long reads = countReads() - before;
    if (before < 0) {
        trial.note("not counted: this system has no /proc/self/io");
        return;
    }
    trial.require(reads < ALLOWED,
                  std::to_string(reads) + " reads of files or sockets for " + std::to_string(QUESTIONS) + " questions",
                  "answers from memory");
}

/** Runs the same on many threads while the thread of the trial waits for them, as the plug-in thread may. */
void onManyThreads(Trial& trial, const std::function<void(int thread)>& action) {
    std::atomic<int> done{0};
    std::vector<std::thread> threads;
    threads.reserve(THREADS);
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&, i] {
            isOwnThread() = true;
            action(i);
            ++done;
        });
    }
    for (std::thread& thread : threads) {
        thread.join(); // one that never comes back is ended with the process
    }
    trial.require(done == THREADS, std::to_string(done) + " threads came back", std::to_string(THREADS));
}

void logsFromAnyThread(Trial& trial) {
    const Platform& platform = trial.platform;
    trial.require(platform.logConsole && platform.logFile, "a function is missing", "both functions that write");
    trial.journal.noteCall("log functions of several threads at a time");
    onManyThreads(trial, [&](int thread) {
        for (int i = 0; i < LINES; ++i) {
            const char* mark = platform.logGetCmd(MODULE);
            if (platform.logIsOutput(MODULE, 2)) {
                platform.logConsole("kit", mark, TOSLOG_LOGLVL_INFO, "[%s:%d]:thread %d line %d\n\n", "check", __LINE__,
                                    thread, i);
            }
            if (platform.logIsOutfile(MODULE, 2)) {
                platform.logFile(mark, 2, "[%s:%d]:thread %d line %d\n\n", "check", __LINE__, thread, i);
            }
        }
    });
}

void takesAnyText(Trial& trial) {
    const Platform& platform = trial.platform;
    trial.require(platform.logConsole && platform.logFile, "a function is missing", "both functions that write");
    if (!platform.logConsole || !platform.logFile) {
        return;
    }
    const std::string longText(20'000, 'x');
    const char* mark = platform.logGetCmd(MODULE);
    for (const int level : {2, 3, 4, 5, 6}) {
        platform.logIsOutput(MODULE, level);
        platform.logIsOutfile(MODULE, level);
        platform.logConsole("kit", mark, level, "[%s:%d]:%s\n", "check", __LINE__, longText.c_str());
        platform.logFile(mark, level, "[%s:%d]:%s\n", "check", __LINE__, longText.c_str());
        platform.logConsole("kit", mark, level, "[%s:%d]:%lld %f %p %%\n\n", "check", __LINE__, 1234567890123LL, 0.5,
                            static_cast<const void*>(mark));
        platform.logFile(mark, level, "[%s:%d]:%lld %f %p %%\n\n", "check", __LINE__, 1234567890123LL, 0.5,
                         static_cast<const void*>(mark));
    }
}

} // namespace

std::vector<Check> logChecks() {
    const char* const header = "tos_log.h";
    return {
        {"log-functions-exist", header, "The plug-in asks for every line whether the console and the file want it.",
         "the plug-in is not loaded at all", "Looks each function up by its name.", functionsExist},
        {"log-mark-is-static", header, "The module's mark at the head of its lines; static text, never null.",
         "the browser crashes at the first line of the log", "Asks for several modules and compares.", markIsStatic},
        {"log-answers-from-memory", header, "Asked for every line: answer from memory.",
         "each script call of a page takes milliseconds", "Asks 20,000 times and counts what the process reads.",
         answersFromMemory},
        {"log-from-any-thread",
         header,
         "The functions may be called on any thread, several at a time, and must not wait for the plug-in thread.",
         "the browser crashes or stands still when the log is switched on",
         "Writes from eight threads while the plug-in thread waits for them.",
         logsFromAnyThread,
         {},
         "",
         {"log-functions-exist"}},
        {"log-takes-any-text",
         header,
         "format: printf format, beginning with \"[%s:%d]:\".",
         "the browser crashes at a page with a long address",
         "Writes 20,000 letters, numbers, blank lines.",
         takesAnyText,
         {},
         "",
         {"log-functions-exist"}},
    };
}

} // namespace compliance
