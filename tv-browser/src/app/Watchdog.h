/**
 * Sees to it that the program ends: in order on SIGINT and SIGTERM, and by force when a page's endless script, or
 * whatever else, keeps it from ending.
 */
#ifndef WATCHDOG_H
#define WATCHDOG_H

#include <optional>
#include <thread>

namespace tv {

class Watchdog {
public:
    /**
     * Takes over the two signals. To be made before other threads, which inherit that, and to outlive the application.
     * @param endsWithin seconds after which the program ends by itself; nothing when it runs until it is told
     */
    explicit Watchdog(std::optional<double> endsWithin);
    ~Watchdog();

    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

private:
    void watch(std::optional<double> endsWithin) const;

    int m_signals; ///< signalfd
    int m_end;     ///< eventfd, written when the program has ended
    std::thread m_thread;
};

} // namespace tv

#endif
