#include "TimelineFile.h"

#include <QJsonDocument>

TimelineFile::TimelineFile(const QString& path) : m_file(path) {
    m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

QString TimelineFile::problem() const {
    return m_file.isOpen() ? QString() : m_file.errorString();
}

void TimelineFile::write(const TimelineEntries& entries) {
    for (const TimelineEntry& entry : entries) {
        m_file.write(timelineJson(entry) + '\n');
    }
    m_file.flush();
}

QByteArray timelineJson(const TimelineEntry& entry) {
    QJsonObject json = entry.fields;
    json[QStringLiteral("time")] = static_cast<qint64>(entry.timeUs);
    json[QStringLiteral("kind")] = QLatin1String(timelineKindName(entry.kind));
    json[QStringLiteral("object")] = entry.object;
    if (entry.player >= 0) {
        json[QStringLiteral("player")] = entry.player;
    }
    if (entry.tookUs >= 0) {
        json[QStringLiteral("took")] = static_cast<qint64>(entry.tookUs);
    }
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}
