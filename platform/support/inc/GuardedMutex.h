/**
 * A mutex that knows what it guards. A field declared `GUARDED_BY(m_mutex)` may be read and written only while a Lock
 * of that mutex lives, a function declared `REQUIRES(m_mutex)` may be called only then, and one declared
 * `EXCLUDES(m_mutex)` only while none does. `./test check lint` has clang check it; for other compilers this is a
 * std::mutex and a std::lock_guard. Constructors and destructors are not checked.
 *
 * To wait for a change, use a Condition:
 *
 *     const Lock lock(m_mutex);
 *     m_changed.waitFor(m_mutex, limit, [this]() REQUIRES(m_mutex) { return m_ended; });
 */
#ifndef PLATFORM_SUPPORT_GUARDED_MUTEX_H
#define PLATFORM_SUPPORT_GUARDED_MUTEX_H

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

#if defined(__clang__)
#define THREAD_SAFETY(attribute) __attribute__((attribute))
#else
#define THREAD_SAFETY(attribute)
#endif

#define GUARDED_BY(mutex) THREAD_SAFETY(guarded_by(mutex))
#define REQUIRES(...) THREAD_SAFETY(requires_capability(__VA_ARGS__))
#define EXCLUDES(...) THREAD_SAFETY(locks_excluded(__VA_ARGS__))

namespace support {

/** Takes the place of its C++ library's namesake, `Base`: std::mutex or std::recursive_mutex. */
template <typename Base> class THREAD_SAFETY(capability("mutex")) BasicMutex {
public:
    void lock() THREAD_SAFETY(acquire_capability()) { m_base.lock(); }
    void unlock() THREAD_SAFETY(release_capability()) { m_base.unlock(); }

private:
    friend class Condition;
    Base m_base;
};

using Mutex = BasicMutex<std::mutex>;
using RecursiveMutex = BasicMutex<std::recursive_mutex>;

/** Holds a mutex for as long as it lives. */
template <typename AnyMutex> class THREAD_SAFETY(scoped_lockable) BasicLock {
public:
    explicit BasicLock(AnyMutex& mutex) THREAD_SAFETY(acquire_capability(mutex)) : m_mutex(mutex) { m_mutex.lock(); }
    ~BasicLock() THREAD_SAFETY(release_capability()) { m_mutex.unlock(); }

    BasicLock(const BasicLock&) = delete;
    BasicLock& operator=(const BasicLock&) = delete;

private:
    AnyMutex& m_mutex;
};

using Lock = BasicLock<Mutex>;
using RecursiveLock = BasicLock<RecursiveMutex>;

/** As std::condition_variable. */
class Condition {
public:
    /** Waits, without the mutex, until the predicate is true. @return false when it is not, after the limit */
    template <class Predicate>
    bool waitFor(Mutex& mutex, std::chrono::milliseconds limit, Predicate predicate) REQUIRES(mutex) {
        std::unique_lock<std::mutex> lock(mutex.m_base, std::adopt_lock);
        const bool result = m_base.wait_for(lock, limit, std::move(predicate));
        lock.release(); // the caller's Lock goes on holding the mutex
        return result;
    }

    void notifyAll() { m_base.notify_all(); }

private:
    std::condition_variable m_base;
};

} // namespace support

#endif
