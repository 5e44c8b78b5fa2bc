#include "faults/FaultRule.h"

#include <optional>

namespace tv {

Result<FaultRule, QString> parseFaultRule(const QString& text) {
    const QLatin1Char separator('=');
    std::optional<QString> wrong;
    // Patterns and content types may contain the separator too: the first one that faults follow counts.
    for (int i = text.indexOf(separator); i >= 0; i = text.indexOf(separator, i + 1)) {
        const QString pattern = text.left(i).trimmed();
        const QString faults = text.mid(i + 1).trimmed();
        if (pattern.isEmpty() || QString(faults).remove(QLatin1Char(',')).isEmpty()) {
            continue;
        }
        const auto fault = parseServerFault(faults.toStdString());
        if (fault) {
            return FaultRule{text, {pattern.toStdString(), *fault}};
        }
        if (!wrong) {
            wrong = QString::fromStdString(fault.reason());
        }
    }
    return Failure{wrong.value_or(text)};
}

} // namespace tv
