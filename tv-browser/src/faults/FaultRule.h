/** Network faults, by address pattern, as a person writes them. */
#ifndef FAULTRULE_H
#define FAULTRULE_H

#include "base/Result.h"
#include "server/ServerFault.h"

#include <QString>

namespace tv {

struct FaultRule {
    QString text; ///< `PATTERN=FAULTS`, as it was written
    ServerFaultRule rule;
};

/**
 * Reads a rule.
 * @param text `PATTERN=FAULTS`: ServerFaultRule::pattern, and what parseServerFault reads
 * @return the rule; or the part of the text that cannot be read
 */
Result<FaultRule, QString> parseFaultRule(const QString& text);

} // namespace tv

#endif
