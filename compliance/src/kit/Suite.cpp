#include "kit/Suite.h"

#include "kit/Trial.h"

#include <algorithm>
#include <poll.h>
#include <stdexcept>

namespace compliance {
namespace {

constexpr int POLL_MS = 200;

} // namespace

const char* verdictName(Verdict verdict) {
    static const char* const names[] = {"passed", "failed", "not judged", "not offered"};
    return names[static_cast<size_t>(verdict)];
}

Suite::Suite(const std::vector<Check>& checks, Setting setting,
             std::function<void(const Check&, const Result&)> progress)
    : m_checks(checks), m_setting(std::move(setting)), m_progress(std::move(progress)) {}

Results Suite::run(const std::vector<std::string>& only, int jobs) {
    choose(only);
    loadOnce();
    while (!m_waiting.empty() || !m_running.empty()) {
        while (static_cast<int>(m_running.size()) < jobs && startNext()) {}
        collect();
    }
    judgeJournals();
    Results results;
    for (const Check* check : m_wanted) {
        results.emplace_back(check, m_results.at(check->name));
    }
    return results;
}

/** A library that cannot be loaded would make every check fail for the same reason. */
void Suite::loadOnce() {
    Check load = {};
    load.name = "load";
    load.run = [](Trial&) {};
    load.limitSeconds = 60;
    CheckProcess process(load, m_setting);
    while (process.read()) {}
    Entries none;
    const Result result = process.outcome(none);
    if (result.verdict != Verdict::PASSED) {
        throw std::runtime_error("the platform cannot be loaded: " + result.finding.came);
    }
}

void Suite::choose(const std::vector<std::string>& only) {
    for (const std::string& name : only) {
        if (std::none_of(m_checks.begin(), m_checks.end(), [&](const Check& check) { return check.name == name; })) {
            throw std::runtime_error("there is no check \"" + name + "\"; --list names them");
        }
    }
    for (const Check& check : m_checks) {
        if (only.empty() || std::find(only.begin(), only.end(), check.name) != only.end()) {
            m_wanted.push_back(&check);
            m_waiting.push_back(&check);
        }
    }
}

bool Suite::needsAreSettled(const Check& check, std::string& unmet) const {
    for (const char* need : check.needs) {
        const bool waits = std::any_of(m_waiting.begin(), m_waiting.end(),
                                       [&](const Check* other) { return other->name == std::string(need); });
        const bool runs = std::any_of(m_running.begin(), m_running.end(),
                                      [&](const auto& process) { return process->check().name == std::string(need); });
        if (waits || runs) {
            return false;
        }
        const auto result = m_results.find(need);
        if (result != m_results.end() && result->second.verdict != Verdict::PASSED) {
            unmet = need;
        }
    }
    return true;
}

/** @return false when all that wait have to wait for those that run */
bool Suite::startNext() {
    for (auto next = m_waiting.begin(); next != m_waiting.end(); ++next) {
        const Check& check = **next;
        std::string unmet;
        if (!needsAreSettled(check, unmet)) {
            continue;
        }
        m_waiting.erase(next);
        if (!m_setting.profile.offers(check.feature)) {
            settle(check, {Verdict::NOT_OFFERED, {}, std::string("the profile leaves out ") + check.feature, 0});
        } else if (!unmet.empty()) {
            settle(check, {Verdict::NOT_JUDGED, {"it builds on " + unmet + ", which has not passed", ""}, "", 0});
        } else {
            m_running.push_back(std::make_unique<CheckProcess>(check, m_setting));
        }
        return true;
    }
    return false;
}

void Suite::collect() {
    std::vector<pollfd> descriptors;
    for (const auto& process : m_running) {
        descriptors.push_back({process->descriptor(), POLLIN, 0});
    }
    poll(descriptors.data(), descriptors.size(), POLL_MS);
    for (size_t i = m_running.size(); i-- > 0;) {
        CheckProcess& process = *m_running[i];
        process.endWhenLate();
        if (descriptors[i].revents != 0 && !process.read()) {
            Result result = process.outcome(m_journals[process.check().name]);
            settle(process.check(), std::move(result));
            m_running.erase(m_running.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
}

void Suite::judgeJournals() {
    size_t reports = 0;
    for (const auto& [name, entries] : m_journals) {
        reports += static_cast<size_t>(std::count_if(entries.begin(), entries.end(),
                                                     [](const Entry& entry) { return entry.kind == Entry::REPORT; }));
    }
    for (const Check* check : m_wanted) {
        Result& result = m_results[check->name];
        if (!check->judge || result.verdict != Verdict::PASSED) {
            continue;
        }
        judge(*check, result);
        result.note = std::to_string(reports) + " reports of " + std::to_string(m_journals.size()) + " checks seen";
        if (reports == 0) {
            result = {Verdict::NOT_JUDGED, {"the player has not made one report", ""}, "", 0};
        }
        m_progress(*check, result);
    }
}

void Suite::judge(const Check& rule, Result& result) const {
    for (const auto& [name, entries] : m_journals) {
        if (const auto finding = rule.judge(entries, m_setting.profile)) {
            result.verdict = Verdict::FAILED;
            result.finding = {"in " + name + ": " + finding->came, finding->expected};
            return;
        }
    }
}

void Suite::settle(const Check& check, Result result) {
    if (!check.judge || result.verdict != Verdict::PASSED) {
        m_progress(check, result); // a rule is judged at the end
    }
    m_results[check.name] = std::move(result);
}

} // namespace compliance
