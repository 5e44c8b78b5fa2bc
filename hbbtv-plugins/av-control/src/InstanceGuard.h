/** How the plug-in notices that a call has ended its instance. */
#ifndef AVCONTROL_INSTANCEGUARD_H
#define AVCONTROL_INSTANCEGUARD_H

class VideoPlugin;

/**
 * What is left of an operation that called the browser or the page, or released a script object: any of these may run
 * script or layout, and so end the instance. The compiler does not let a caller forget to look at it.
 */
enum class [[nodiscard]] Outcome{
    Done,    ///< as asked; the instance is there
    Refused, ///< a log line says why; the instance is there, and as it was
    Gone     ///< the instance has gone and must not be touched
};

/**
 * A weak reference to an instance, on the stack around a call that may end it. Plug-in thread only.
 */
class InstanceGuard {
public:
    explicit InstanceGuard(VideoPlugin* instance);
    ~InstanceGuard();
    InstanceGuard(const InstanceGuard&) = delete;
    InstanceGuard& operator=(const InstanceGuard&) = delete;

    bool alive() const { return m_instance != nullptr; }
    Outcome outcome() const { return alive() ? Outcome::Done : Outcome::Gone; }

    /** The instance's destructor runs. */
    static void instanceDeleted(const VideoPlugin* instance);

private:
    VideoPlugin* m_instance;
    InstanceGuard* m_outer;
    static InstanceGuard* s_innermost;
};

/**
 * Calls what may end the instance: the public operations of VideoPlugin, whose results do not say so.
 * @return Done, or Gone
 */
template <class Call> Outcome guarded(VideoPlugin& plugin, Call call) {
    const InstanceGuard guard(&plugin);
    call();
    return guard.outcome();
}

#endif
