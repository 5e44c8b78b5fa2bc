#include "TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

TerminationSignals::TerminationSignals() {
    sigset_t endSignals;
    sigemptyset(&endSignals);
    sigaddset(&endSignals, SIGINT);
    sigaddset(&endSignals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &endSignals, nullptr);
    m_descriptor = signalfd(-1, &endSignals, SFD_CLOEXEC);
}

TerminationSignals::~TerminationSignals() {
    close(m_descriptor);
}

void TerminationSignals::watch() {
    auto* notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info{};
        if (read(m_descriptor, &info, sizeof info) == sizeof info) {
            QCoreApplication::exit(128 + static_cast<int>(info.ssi_signo));
        }
    });
}
