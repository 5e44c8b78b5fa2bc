#include "app/Watchdog.h"

#include "base/Print.h"

#include <QCoreApplication>
#include <array>
#include <chrono>
#include <csignal>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace tv {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

/** For an end in order: of the page, the players and the trace. */
constexpr milliseconds grace(5000);

/** @return the time limit for poll() */
int remaining(const std::optional<Clock::time_point>& deadline) {
    if (!deadline) {
        return -1;
    }
    const auto left = std::chrono::duration_cast<milliseconds>(*deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) + 1 : 0;
}

} // namespace

Watchdog::Watchdog(std::optional<double> endsWithin) : m_end(eventfd(0, EFD_CLOEXEC)) {
    sigset_t endSignals;
    sigemptyset(&endSignals);
    sigaddset(&endSignals, SIGINT);
    sigaddset(&endSignals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &endSignals, nullptr);
    m_signals = signalfd(-1, &endSignals, SFD_CLOEXEC);
    m_thread = std::thread([this, endsWithin] { watch(endsWithin); });
}

Watchdog::~Watchdog() {
    eventfd_write(m_end, 1);
    m_thread.join();
    close(m_signals);
    close(m_end);
}

void Watchdog::watch(std::optional<double> endsWithin) const {
    std::optional<Clock::time_point> deadline;
    if (endsWithin) {
        deadline = Clock::now() + grace + milliseconds(static_cast<int64_t>(*endsWithin * 1000));
    }
    int exitCode = 1;
    for (;;) {
        std::array<pollfd, 2> events = {pollfd{m_signals, POLLIN, 0}, pollfd{m_end, POLLIN, 0}};
        const int count = poll(events.data(), events.size(), remaining(deadline));
        if (events[1].revents != 0) {
            return;
        }
        signalfd_siginfo info{};
        if (count == 0) {
            printError(
                QStringLiteral("the page keeps the program from ending, perhaps by an endless script; ended by force"));
            _exit(exitCode);
        } else if (count > 0 && read(m_signals, &info, sizeof info) == sizeof info) {
            exitCode = 128 + static_cast<int>(info.ssi_signo);
            deadline = Clock::now() + grace;
            if (qApp) {
                QMetaObject::invokeMethod(
                    qApp, [exitCode] { QCoreApplication::exit(exitCode); }, Qt::QueuedConnection);
            }
        }
    }
}

} // namespace tv
