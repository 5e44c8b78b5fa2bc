/** A check: one sentence of a contract, and how it is put to the proof. */
#ifndef COMPLIANCE_CHECK_H
#define COMPLIANCE_CHECK_H

#include "kit/Journal.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace compliance {

class Trial;
struct Profile;

/** How a promise was broken. */
struct Finding {
    std::string came;
    std::string expected;
};

/**
 * A check runs code on the platform, in a process of its own. A rule judges the journals of all checks as well, when
 * they have run.
 */
struct Check {
    const char* name;
    const char* header;
    const char* promise;                  // the sentence of the contract
    const char* why;                      // what a page notices when it is broken
    const char* how;                      // what the check does
    std::function<void(Trial&)> run = {}; // throws Finding
    std::function<std::optional<Finding>(const Entries&, const Profile&)> judge = {};
    const char* feature = "";            // of the profile; not offered without it
    std::vector<const char*> needs = {}; // checks without which this one cannot be judged
    int limitSeconds = 60;
};

enum class Verdict { PASSED, FAILED, NOT_JUDGED, NOT_OFFERED };

/** What became of a check. */
struct Result {
    Verdict verdict = Verdict::NOT_JUDGED;
    Finding finding;  // of a failed check; `came` also says why one was not judged
    std::string note; // what a passed check saw
    double seconds = 0;
};

const char* verdictName(Verdict verdict);

} // namespace compliance

#endif
