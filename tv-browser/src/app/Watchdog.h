/** Makes sure that the program ends. */
#ifndef WATCHDOG_H
#define WATCHDOG_H

#include <optional>
#include <thread>

namespace tv {

/**
 * Ends the program in order on SIGINT and SIGTERM, and by force when a page's endless script, or anything else, keeps
 * it from ending.
 */
class Watchdog {
public:
    /**
     * Takes over the two signals. Construct it before other threads, which inherit that; it outlives the application.
     * @param endsWithin seconds after which the program ends by itself; nothing when it runs until the user ends it
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
