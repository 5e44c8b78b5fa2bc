/**
 * A mutex that knows what it guards. A field declared `GUARDED_BY(m_mutex)` may be read and written only while a Lock
 * of that mutex lives, a function declared `REQUIRES(m_mutex)` may be called only then, and one declared
 * `EXCLUDES(m_mutex)` only while none does. `./test check lint` has clang check it; for other compilers this is a
 * std::mutex and a std::lock_guard.
 *
 * To wait for a change, use a std::condition_variable_any with the mutex itself, in a loop:
 *
 *     const Lock lock(m_mutex);
 *     while (!m_ended) {
 *         m_changed.wait(m_mutex);
 *     }
 */
#ifndef PLATFORM_SUPPORT_GUARDED_MUTEX_H
#define PLATFORM_SUPPORT_GUARDED_MUTEX_H

#include <mutex>

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

} // namespace support

#endif
