// Rules for the order and number of reports: an automaton for each player, fed with the journals of all checks.
#include "checks/Checks.h"
#include "checks/medialib/Scenarios.h"

#include <map>

namespace compliance {
namespace {

// A report that was under way when Stop returned; one that was sent later comes later than this.
constexpr int64_t UNDER_WAY_MS = 100;

enum class Fault { NONE, CONNECTING_LATE, FINISHED_AGAIN, AFTER_FINISHED, ERROR_AGAIN, AFTER_ERROR, AFTER_STOP, TICK };

/** Follows one player from start to start. A playback begins with Play or Pause of a player that is stopped. */
class Automaton {
public:
    /** @return the rule that the entry breaks */
    Fault take(const Entry& entry) {
        if (entry.kind == Entry::CALL) {
            onCall(static_cast<Command>(entry.what));
        } else if (entry.kind == Entry::RETURN) {
            onReturn(entry);
        } else if (entry.kind == Entry::REPORT) {
            return onReport(entry);
        }
        return Fault::NONE;
    }

private:
    enum class Phase { STOPPED, RUNNING, FINISHED, FAILED };

    void onCall(Command command) {
        if ((command == Command::PLAY || command == Command::PAUSE) && m_phase == Phase::STOPPED) {
            m_phase = Phase::RUNNING;
            m_hasBegun = false;
        }
        if (command == Command::SEEK || command == Command::SET_SPEED) {
            ++m_movesAsked;
        }
        if (command == Command::PLAY || command == Command::RESUME || command == Command::STOP) {
            ++m_movesAsked; // playback may begin again at its beginning, or go on at normal speed
        }
    }

    void onReturn(const Entry& entry) {
        const auto command = static_cast<Command>(entry.what);
        if (command == Command::STOP && entry.value != 0) {
            m_phase = Phase::STOPPED;
            m_stoppedMs = entry.ms;
        }
    }

    Fault onReport(const Entry& entry) {
        const auto event = static_cast<eMEDIA_CALLBACK_EVENT>(entry.what);
        if (event == eMEDIA_CALLBACK_STOPPED) {
            return Fault::NONE;
        }
        if (event == eMEDIA_CALLBACK_POSITION_CHANGED && --m_movesAsked < 0) {
            return Fault::TICK;
        }
        switch (m_phase) {
        case Phase::STOPPED:
            return entry.ms > m_stoppedMs + UNDER_WAY_MS ? Fault::AFTER_STOP : Fault::NONE;
        case Phase::FINISHED:
            return event == eMEDIA_CALLBACK_FINISHED ? Fault::FINISHED_AGAIN : Fault::AFTER_FINISHED;
        case Phase::FAILED:
            return event == eMEDIA_CALLBACK_ERROR ? Fault::ERROR_AGAIN : Fault::AFTER_ERROR;
        default:
            return onReportOfPlayback(event);
        }
    }

    Fault onReportOfPlayback(eMEDIA_CALLBACK_EVENT event) {
        if (event == eMEDIA_CALLBACK_CONNECTING && m_hasBegun) {
            return Fault::CONNECTING_LATE;
        }
        m_hasBegun = m_hasBegun || event == eMEDIA_CALLBACK_PLAYING || event == eMEDIA_CALLBACK_PAUSED;
        if (event == eMEDIA_CALLBACK_FINISHED) {
            m_phase = Phase::FINISHED;
        } else if (event == eMEDIA_CALLBACK_ERROR) {
            m_phase = Phase::FAILED;
        }
        return Fault::NONE;
    }

    Phase m_phase = Phase::STOPPED;
    bool m_hasBegun = false; // PLAYING or PAUSED has been reported
    int64_t m_stoppedMs = 0;
    int m_movesAsked = 0; // commands that allow a POSITION_CHANGED each
};

/** @return a rule that looks for one fault */
std::function<std::optional<Finding>(const Entries&, const Profile&)> never(Fault wanted, const char* expected) {
    return [wanted, expected](const Entries& entries, const Profile&) -> std::optional<Finding> {
        std::map<int, Automaton> players;
        for (size_t i = 0; i < entries.size(); ++i) {
            if (players[entries[i].player].take(entries[i]) == wanted) {
                return Finding{describeUpTo(entries, i), expected};
            }
        }
        return std::nullopt;
    };
}

} // namespace

std::vector<Check> orderRules() {
    const char* const header = "medialib.h";
    const char* const how = "Follows each player of all checks through its commands and reports.";
    std::vector<Check> checks = {
        {"connecting-comes-first", header,
         "CONNECTING, where a player reports it, comes before PLAYING and PAUSED of its playback.",
         "the play state goes back to connecting under a film that plays", how, liveThrough,
         never(Fault::CONNECTING_LATE, "CONNECTING before PLAYING and PAUSED, or not at all")},
        {"finished-comes-once", header, "FINISHED is reported once for each playback.",
         "a loop restarts the media twice, a queue skips an item", how, playToTheEnd,
         never(Fault::FINISHED_AGAIN, "one FINISHED")},
        {"nothing-after-finished", header, "After FINISHED, nothing but STOPPED is reported until the next start.",
         "the object leaves the state finished, and a page waits for an end that has been", how, playToTheEnd,
         never(Fault::AFTER_FINISHED, "no report but STOPPED")},
        {"error-comes-once", header, "ERROR is reported once for each playback.",
         "the value of error changes while the page shows its message", how, failToPlay,
         never(Fault::ERROR_AGAIN, "one ERROR, for the first cause")},
        {"nothing-after-error", header, "After ERROR, nothing but STOPPED is reported until the next start.",
         "the object leaves its error state, and the page's message never shows or never goes", how, failToPlay,
         never(Fault::AFTER_ERROR, "no report but STOPPED")},
        {"nothing-after-stop", header, "When Stop has returned, nothing but STOPPED is reported until the next start.",
         "a page that has stopped reads that it plays", how, stopWhilePlaying,
         never(Fault::AFTER_STOP, "no report but STOPPED, and those under way")},
        {"position-changed-is-no-tick", header,
         "POSITION_CHANGED: after a seek or a speed change, never as a clock tick.",
         "the page's handler runs all the time and slows the television down", how, liveThrough,
         never(Fault::TICK, "at most one POSITION_CHANGED for each command that moves the position")},
    };
    for (Check& check : checks) {
        check.needs = {"play-starts"};
    }
    return checks;
}

} // namespace compliance
