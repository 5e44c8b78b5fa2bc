#include "FaultRule.h"

std::optional<ServerFaultRule> parseFaultRule(const QString& text, QString& wrong) {
    const QString pattern = text.section(QLatin1Char('='), 0, -2).trimmed();
    if (pattern.isEmpty()) {
        wrong = text;
        return std::nullopt;
    }
    std::string wrongFault;
    const auto fault = parseServerFault(text.section(QLatin1Char('='), -1).trimmed().toStdString(), wrongFault);
    if (!fault) {
        wrong = QString::fromStdString(wrongFault);
        return std::nullopt;
    }
    return ServerFaultRule{pattern.toStdString(), *fault};
}
