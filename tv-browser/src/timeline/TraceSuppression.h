/**
 * Keeps script of the television's own out of the timeline, which shows what the page does.
 */
#ifndef TRACESUPPRESSION_H
#define TRACESUPPRESSION_H

namespace tv {

/**
 * While one exists, the timeline leaves out what script reads and calls on plug-in objects. Others may be made
 * meanwhile; the last one's end counts. Thread: the engine's.
 */
class TraceSuppression {
public:
    TraceSuppression() { ++s_depth; }
    ~TraceSuppression() { --s_depth; }

    TraceSuppression(const TraceSuppression&) = delete;
    TraceSuppression& operator=(const TraceSuppression&) = delete;

    /** @return true while one exists */
    static bool isActive() { return s_depth > 0; }

private:
    static inline int s_depth = 0;
};

} // namespace tv

#endif
