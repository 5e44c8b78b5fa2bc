#include "kit/Trial.h"

#include <atomic>
#include <exception>

namespace compliance {

bool& isOwnThread() {
    static thread_local bool isOwn = false;
    return isOwn;
}

Trial::Trial(Platform& thePlatform, HttpServer& theServer, const Profile& theProfile, Journal& theJournal)
    : platform(thePlatform), server(theServer), profile(theProfile), journal(theJournal) {
    isOwnThread() = true;
}

void Trial::fail(const std::string& came, const std::string& expected) const {
    throw Finding{came, expected};
}

void Trial::require(bool condition, const std::string& came, const std::string& expected) const {
    if (!condition) {
        fail(came, expected);
    }
}

bool Trial::comesToHold(const std::function<bool()>& condition) const {
    return comesToHold(condition, profile.patience);
}

bool Trial::comesToHold(const std::function<bool()>& condition, std::chrono::seconds patience) const {
    const auto limit = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        wait(milliseconds(20));
    }
    return true;
}

void Trial::note(const std::string& text) {
    m_notes += (m_notes.empty() ? "" : "; ") + text;
}

bool Trial::returnsInTime(const std::function<void()>& action, const std::function<void()>& whenLate,
                          std::chrono::seconds limit) const {
    std::atomic<bool> hasReturned{false};
    std::exception_ptr thrown;
    std::thread runner([&] {
        isOwnThread() = true;
        try {
            action();
        } catch (...) {
            thrown = std::current_exception();
        }
        hasReturned = true;
    });
    const bool inTime = comesToHold([&] { return hasReturned.load(); }, limit);
    if (!inTime) {
        whenLate(); // lets it return, so that the thread can be joined
    }
    runner.join();
    if (thrown) {
        std::rethrow_exception(thrown);
    }
    return inTime;
}

} // namespace compliance
