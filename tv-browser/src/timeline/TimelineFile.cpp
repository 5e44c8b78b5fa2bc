#include "timeline/TimelineFile.h"

#include "timeline/TimelineJson.h"

#include <QJsonDocument>

namespace tv {

TimelineFile::TimelineFile(const QString& path) : m_file(path) {
    m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

Result<void, QString> TimelineFile::check() const {
    if (!m_file.isOpen()) {
        return Failure{m_file.errorString()};
    }
    return {};
}

void TimelineFile::write(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        m_file.write(QJsonDocument(timelineJson(entry)).toJson(QJsonDocument::Compact) + '\n');
    }
    m_file.flush();
}

} // namespace tv
