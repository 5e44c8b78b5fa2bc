#include "timeline/TimelineFile.h"

#include "timeline/TimelineJson.h"

#include <QJsonDocument>

namespace tv {

TimelineFile::TimelineFile(const QString& path) : m_file(path) {
    m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

QString TimelineFile::problem() const {
    return m_file.isOpen() ? QString() : m_file.errorString();
}

void TimelineFile::write(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        m_file.write(QJsonDocument(timelineJson(entry)).toJson(QJsonDocument::Compact) + '\n');
    }
    m_file.flush();
}

} // namespace tv
