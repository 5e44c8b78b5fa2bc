#include "faults/FaultRule.h"

namespace tv {

std::optional<ServerFaultRule> parseFaultRule(const QString& text, QString& wrong) {
    const QLatin1Char separator('=');
    wrong = text;
    bool isFirst = true;
    // Patterns and content types may have the separator too: the first one counts that faults follow.
    for (int i = text.indexOf(separator); i >= 0; i = text.indexOf(separator, i + 1)) {
        const QString pattern = text.left(i).trimmed();
        const QString faults = text.mid(i + 1).trimmed();
        if (pattern.isEmpty() || QString(faults).remove(QLatin1Char(',')).isEmpty()) {
            continue;
        }
        std::string wrongFault;
        const auto fault = parseServerFault(faults.toStdString(), wrongFault);
        if (fault) {
            return ServerFaultRule{pattern.toStdString(), *fault};
        }
        if (isFirst) {
            wrong = QString::fromStdString(wrongFault);
            isFirst = false;
        }
    }
    return std::nullopt;
}

} // namespace tv
