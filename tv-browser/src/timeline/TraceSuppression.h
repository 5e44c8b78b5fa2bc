/**
 * Script of the television's own, which the timeline does not tell: it is no page's doing.
 */
#ifndef TRACESUPPRESSION_H
#define TRACESUPPRESSION_H

namespace tv {

/** While one exists, what script does with plug-in objects is not told. One at a time, on the engine's thread. */
class TraceSuppression {
public:
    TraceSuppression() { s_runs = true; }
    ~TraceSuppression() { s_runs = false; }

    TraceSuppression(const TraceSuppression&) = delete;
    TraceSuppression& operator=(const TraceSuppression&) = delete;

    /** @return true while one exists */
    static bool runs() { return s_runs; }

private:
    static inline bool s_runs = false;
};

} // namespace tv

#endif
