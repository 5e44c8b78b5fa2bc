/**
 * Faults of servers, by address pattern, as a person writes them.
 */
#ifndef FAULTRULE_H
#define FAULTRULE_H

#include "server/LoopbackServer.h"

#include <QString>
#include <optional>

namespace tv {

/**
 * @param text `PATTERN=FAULTS`: ServerFaultRule::pattern, and what parseServerFault reads
 * @param wrong receives the part that cannot be read
 */
std::optional<ServerFaultRule> parseFaultRule(const QString& text, QString& wrong);

} // namespace tv

#endif
