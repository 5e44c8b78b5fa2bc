/** How the threads of a server learn that it stops. */
#ifndef STOPSIGNAL_H
#define STOPSIGNAL_H

#include "GuardedMutex.h"

namespace tv {

/** Lets the threads of a server wait, and wakes all of them when the server stops. Thread: any. */
class StopSignal {
public:
    /** Waits. @return false, at once, when the server stops */
    bool pause(int milliseconds);

    /** Every wait ends now, and later ones do not begin. */
    void stop();

private:
    support::Mutex m_mutex;
    support::Condition m_changed;
    bool m_isStopping GUARDED_BY(m_mutex) = false;
};

} // namespace tv

#endif
