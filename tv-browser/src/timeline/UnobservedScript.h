/**
 * Script of the television's own, which the timeline does not tell: it is no page's doing.
 */
#ifndef UNOBSERVEDSCRIPT_H
#define UNOBSERVEDSCRIPT_H

/** While one exists, what script does with plug-in objects is not told. One at a time, on the engine's thread. */
class UnobservedScript {
public:
    UnobservedScript() { s_runs = true; }
    ~UnobservedScript() { s_runs = false; }

    UnobservedScript(const UnobservedScript&) = delete;
    UnobservedScript& operator=(const UnobservedScript&) = delete;

    /** @return true while one exists */
    static bool runs() { return s_runs; }

private:
    static inline bool s_runs = false;
};

#endif
