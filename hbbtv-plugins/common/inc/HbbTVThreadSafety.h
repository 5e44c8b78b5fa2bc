/**
 * Marks that say which lock guards what. clang checks them (-Wthread-safety); for other compilers they are nothing.
 *
 * A variable with HBBTV_GUARDED_BY(mutex) may be used only while the mutex is held, a function with
 * HBBTV_REQUIRES(mutex) may be called only then. The mutex is of a class with HBBTV_CAPABILITY, whose functions say
 * whether they acquire or release it; an object of a class with HBBTV_SCOPED_LOCK holds one for as long as it lives.
 * clang does not look into constructors and destructors, nor into functions with HBBTV_UNCHECKED.
 */
#ifndef HBBTV_THREAD_SAFETY_H
#define HBBTV_THREAD_SAFETY_H

#if defined(__clang__)
#define HBBTV_THREAD_SAFETY(attribute) __attribute__((attribute))
#else
#define HBBTV_THREAD_SAFETY(attribute)
#endif

#define HBBTV_CAPABILITY HBBTV_THREAD_SAFETY(capability("mutex"))
#define HBBTV_SCOPED_LOCK HBBTV_THREAD_SAFETY(scoped_lockable)
#define HBBTV_ACQUIRE(...) HBBTV_THREAD_SAFETY(acquire_capability(__VA_ARGS__))
#define HBBTV_RELEASE(...) HBBTV_THREAD_SAFETY(release_capability(__VA_ARGS__))
#define HBBTV_GUARDED_BY(mutex) HBBTV_THREAD_SAFETY(guarded_by(mutex))
#define HBBTV_REQUIRES(mutex) HBBTV_THREAD_SAFETY(requires_capability(mutex))
#define HBBTV_UNCHECKED HBBTV_THREAD_SAFETY(no_thread_safety_analysis)

#endif
