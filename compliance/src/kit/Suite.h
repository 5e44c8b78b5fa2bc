/** Which checks run, in which order, and what became of each. */
#ifndef COMPLIANCE_SUITE_H
#define COMPLIANCE_SUITE_H

#include "kit/CheckProcess.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace compliance {

/** Each check that was asked for, with its result, in the order of the contracts. */
using Results = std::vector<std::pair<const Check*, Result>>;

class Suite {
public:
    /** @param progress called with each result as it comes */
    Suite(const std::vector<Check>& checks, Setting setting, std::function<void(const Check&, const Result&)> progress);

    /**
     * @param only names of the checks to run, all when empty
     * @param jobs how many run at a time
     * @throws std::runtime_error when a name is unknown, or a library cannot be loaded
     */
    Results run(const std::vector<std::string>& only, int jobs);

private:
    void loadOnce();
    void choose(const std::vector<std::string>& only);
    bool startNext();
    void collect();
    void judgeJournals();
    void judge(const Check& rule, Result& result) const;
    void settle(const Check& check, Result result);

    /** @return whether what a check needs is settled; writes the one that was not passed */
    bool needsAreSettled(const Check& check, std::string& unmet) const;

    const std::vector<Check>& m_checks;
    const Setting m_setting;
    const std::function<void(const Check&, const Result&)> m_progress;
    std::vector<const Check*> m_wanted;
    std::deque<const Check*> m_waiting;
    std::vector<std::unique_ptr<CheckProcess>> m_running;
    std::map<std::string, Result> m_results;
    std::map<std::string, Entries> m_journals;
};

} // namespace compliance

#endif
