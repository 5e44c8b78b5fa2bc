// Rules for each single report, judged over the journals of all checks.
#include "checks/Checks.h"
#include "checks/medialib/Scenarios.h"

namespace compliance {
namespace {

// A report that was under way when the call returned; one that was sent later comes later than this.
constexpr int64_t UNDER_WAY_MS = 100;
constexpr int64_t NO_GRACE = -1; // not even in the same millisecond

using Rule = std::function<bool(const Entry& report)>;

/** @return the finding for the first report that breaks the rule */
std::optional<Finding> firstThatBreaks(const Entries& entries, const Rule& isBroken, const std::string& what,
                                       const std::string& expected) {
    for (size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].kind == Entry::REPORT && isBroken(entries[i])) {
            return Finding{what + ": " + describeUpTo(entries, i), expected};
        }
    }
    return std::nullopt;
}

std::optional<Finding> threads(const Entries& entries, const Profile&) {
    return firstThatBreaks(
        entries, [](const Entry& report) { return report.ownThread != 0; }, "a report came on the caller's thread",
        "a thread of the player");
}

std::optional<Finding> identities(const Entries& entries, const Profile&) {
    return firstThatBreaks(
        entries, [](const Entry& report) { return report.wrongId || report.wrongUser; },
        "a report came with another playerId or userData", "the player's handle and what AddCallback got");
}

std::optional<Finding> events(const Entries& entries, const Profile&) {
    return firstThatBreaks(
        entries, [](const Entry& report) { return report.what < 1 || report.what >= eMEDIA_CALLBACK_MAX; },
        "an unknown event", "an eMEDIA_CALLBACK_EVENT, 1 to 12");
}

bool isCodeOutOfRange(const Entry& report) {
    constexpr int LARGEST_ERROR = 6;
    switch (report.what) {
    case eMEDIA_CALLBACK_ERROR:
        return report.value < 0 || report.value > LARGEST_ERROR;
    case eMEDIA_CALLBACK_SELECTED_COMPONENT_CHANGED:
        return report.value < AV_COMPONENT_TYPE_VIDEO || report.value > AV_COMPONENT_TYPE_SUBTITLE;
    default:
        return false;
    }
}

std::optional<Finding> codes(const Entries& entries, const Profile&) {
    return firstThatBreaks(entries, isCodeOutOfRange, "a code out of its range",
                           "ERROR with 0 to 6, SELECTED_COMPONENT_CHANGED with 0 to 2");
}

std::optional<Finding> dataBlocks(const Entries& entries, const Profile&) {
    return firstThatBreaks(
        entries, [](const Entry& report) { return report.data == DataKind::STACK || report.data == DataKind::STATIC; },
        "a data block on the stack or in static memory", "null, or a block from malloc()");
}

bool isCall(const Entry& entry, Entry::Kind kind, Command command) {
    return entry.kind == kind && entry.what == static_cast<int32_t>(command);
}

/** Looks at the reports of each player between the return of one command and, if given, the call of another. */
std::optional<Finding> reportAfter(const Entries& entries, Command from, const Command* until, int64_t grace) {
    for (size_t i = 0; i < entries.size(); ++i) {
        if (!isCall(entries[i], Entry::RETURN, from)) {
            continue;
        }
        for (size_t j = i + 1; j < entries.size(); ++j) {
            const Entry& entry = entries[j];
            if (entry.player != entries[i].player) {
                continue;
            }
            if (until && isCall(entry, Entry::CALL, *until)) {
                break;
            }
            if (entry.kind == Entry::REPORT && entry.ms > entries[i].ms + grace) {
                return Finding{"a report after " + std::string(commandName(from)) + ": " + describeUpTo(entries, j),
                               "no report"};
            }
        }
    }
    return std::nullopt;
}

std::optional<Finding> afterRemove(const Entries& entries, const Profile& profile) {
    const Command until = Command::CLOSE;
    return reportAfter(entries, Command::REMOVE_CALLBACK, &until,
                       profile.removeCallbackWaits ? NO_GRACE : UNDER_WAY_MS);
}

std::optional<Finding> afterClose(const Entries& entries, const Profile& profile) {
    return reportAfter(entries, Command::CLOSE, nullptr, profile.removeCallbackWaits ? NO_GRACE : UNDER_WAY_MS);
}

} // namespace

std::vector<Check> reportRules() {
    const char* const header = "medialib.h";
    const char* const how = "Looks at every report of all checks.";
    std::vector<Check> checks = {
        {"report-thread", header, "Thread: a thread of the player, not the plug-in thread.",
         "handlers run inside the call that caused them; a page sees states in an order that cannot be", how,
         liveThrough, threads},
        {"report-identity", header, "playerId: the player's handle. userData: as given to AddCallback.",
         "events of one object arrive at another, or the browser crashes", how, liveThrough, identities},
        {"report-event-known", header, "What the player reports: 1 to 12.", "the event is lost", how, liveThrough,
         events},
        {"report-code-in-range", header, "An error value of the A/V Control object, 0 to 6; component type 0 to 2.",
         "the property error has a value for which no page has a message", how, liveThrough, codes},
        {"report-data-from-malloc", header,
         "data: null, or a block from malloc() that becomes the callee's, who frees it with free().",
         "the browser crashes at the report, or later somewhere else", how, liveThrough, dataBlocks},
        {"no-report-after-remove", header,
         "When Hbbtv_AL_MediaPlayerRemoveCallback has returned, no report is under way and none follows.",
         "the browser crashes when a page with media is left", how, removeWhilePlaying, afterRemove},
        {"no-report-after-close", header, "Ends a player and frees all it holds: no report of it follows.",
         "the browser crashes when a page with media is left", how, closeAfterPlaying, afterClose},
    };
    for (Check& check : checks) {
        check.needs = {"play-starts"};
    }
    return checks;
}

} // namespace compliance
