#include "kit/CheckProcess.h"

#include "kit/Trial.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace compliance {
namespace {

constexpr size_t LAST_CALL_SIZE = 256;

/** The outcome as bytes: four texts, each with its size, and the entries. */
void append(std::string& bytes, const std::string& text) {
    const auto size = static_cast<uint32_t>(text.size());
    bytes.append(reinterpret_cast<const char*>(&size), sizeof size);
    bytes += text;
}

bool take(std::string& bytes, std::string& text) {
    uint32_t size = 0;
    if (bytes.size() < sizeof size) {
        return false;
    }
    std::memcpy(&size, bytes.data(), sizeof size);
    if (bytes.size() < sizeof size + size) {
        return false;
    }
    text = bytes.substr(sizeof size, size);
    bytes.erase(0, sizeof size + size);
    return true;
}

void writeAll(int pipe, const std::string& bytes) {
    for (size_t at = 0; at < bytes.size();) {
        const ssize_t count = write(pipe, bytes.data() + at, bytes.size() - at);
        if (count <= 0) {
            return;
        }
        at += static_cast<size_t>(count);
    }
}

void discardOutput() {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0) {
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
}

Result runCheck(const Check& check, const Setting& setting, Journal& journal) {
    Result result;
    result.verdict = Verdict::FAILED;
    try {
        Platform platform;
        platform.load(setting.libraries);
        HttpServer server(setting.address);
        server.mount("/media/", setting.mediaFolder);
        Trial trial(platform, server, setting.profile, journal);
        check.run(trial);
        result.verdict = Verdict::PASSED;
        result.note = trial.notes();
    } catch (const Finding& finding) {
        result.finding = finding;
    } catch (const MissingFunction& missing) {
        result.verdict = Verdict::NOT_JUDGED;
        result.finding.came = std::string("no library has the function ") + missing.what();
    } catch (const std::exception& problem) {
        result.verdict = Verdict::NOT_JUDGED;
        result.finding.came = problem.what();
    }
    return result;
}

} // namespace

CheckProcess::CheckProcess(const Check& check, const Setting& setting) : m_check(check) {
    int ends[2];
    void* shared = mmap(nullptr, LAST_CALL_SIZE, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED || pipe2(ends, O_CLOEXEC) != 0) {
        throw std::runtime_error(std::string("no process for a check: ") + std::strerror(errno));
    }
    m_lastCall = static_cast<char*>(shared);
    m_process = fork();
    if (m_process == 0) {
        close(ends[0]);
        runChild(ends[1], setting);
    }
    close(ends[1]);
    m_pipe = ends[0];
    if (m_process < 0) {
        throw std::runtime_error(std::string("no process for a check: ") + std::strerror(errno));
    }
}

CheckProcess::~CheckProcess() {
    close(m_pipe);
    munmap(m_lastCall, LAST_CALL_SIZE);
}

void CheckProcess::runChild(int pipe, const Setting& setting) {
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody waits for it without its parent
#endif
    if (!setting.showOutput) {
        discardOutput();
    }
    Journal journal(m_lastCall);
    const Result result = runCheck(m_check, setting, journal);
    std::string bytes;
    append(bytes, std::string(1, static_cast<char>(result.verdict)));
    append(bytes, result.finding.came);
    append(bytes, result.finding.expected);
    append(bytes, result.note);
    const Entries entries = journal.entries();
    if (!entries.empty()) {
        bytes.append(reinterpret_cast<const char*>(entries.data()), entries.size() * sizeof(Entry));
    }
    writeAll(pipe, bytes);
    _exit(0); // destructors of the platform's libraries are no part of any contract
}

bool CheckProcess::read() {
    char buffer[65'536];
    const ssize_t count = ::read(m_pipe, buffer, sizeof buffer);
    if (count > 0) {
        m_received.append(buffer, static_cast<size_t>(count));
    }
    return count > 0 || (count < 0 && errno == EINTR);
}

bool CheckProcess::endWhenLate() {
    const auto limit = std::chrono::seconds(m_check.limitSeconds);
    if (!m_isLate && std::chrono::steady_clock::now() - m_start > limit) {
        m_isLate = true;
        kill(m_process, SIGKILL);
    }
    return m_isLate;
}

std::string CheckProcess::wayOfEnd(int status) const {
    const std::string where = m_lastCall[0] ? std::string(", last seen ") + m_lastCall : std::string();
    if (m_isLate) {
        return "nothing more happened for " + std::to_string(m_check.limitSeconds) + " s" + where;
    }
    if (WIFSIGNALED(status)) {
        return std::string("the process crashed: ") + strsignal(WTERMSIG(status)) + where;
    }
    return "the process ended itself with exit code " + std::to_string(WEXITSTATUS(status)) + where;
}

Result CheckProcess::outcome(Entries& entries) {
    int status = 0;
    waitpid(m_process, &status, 0);
    Result result;
    std::string verdict;
    std::string rest = m_received;
    if (take(rest, verdict) && take(rest, result.finding.came) && take(rest, result.finding.expected) &&
        take(rest, result.note)) {
        result.verdict = static_cast<Verdict>(verdict[0]);
        entries.resize(rest.size() / sizeof(Entry));
        if (!entries.empty()) {
            std::memcpy(static_cast<void*>(entries.data()), rest.data(), entries.size() * sizeof(Entry));
        }
    } else {
        result.verdict = Verdict::FAILED;
        result.finding = {wayOfEnd(status), "a check that comes to its end"};
    }
    const std::chrono::duration<double> duration = std::chrono::steady_clock::now() - m_start;
    result.seconds = duration.count();
    return result;
}

} // namespace compliance
