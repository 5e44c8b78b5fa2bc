#include "timeline/panel/TimelineModel.h"

#include "timeline/ObservedText.h"
#include "timeline/TimelineText.h"

#include <QColor>

namespace tv {

namespace {

using Kind = TimelineKind;

constexpr int mostEntries = 20'000;
constexpr int trimmedAtOnce = 2'000; // views rebuild themselves when rows are removed

QColor colourOf(Kind kind) {
    switch (kind) {
    case Kind::ERROR:
    case Kind::SCRIPT_ERROR:
        return QColor(0xff, 0x8a, 0x80);
    case Kind::STALL:
        return QColor(0xff, 0xca, 0x4f);
    case Kind::STATE:
    case Kind::EVENT:
        return QColor(0x9c, 0xdc, 0x9f);
    case Kind::CALL:
    case Kind::WRITE:
        return QColor(0x9e, 0xc7, 0xff);
    case Kind::CONSOLE:
    case Kind::KEY:
    case Kind::PAGE:
        return QColor(0xff, 0xff, 0xff);
    default:
        return QColor(0xb4, 0xba, 0xc4);
    }
}

QString duration(const TimelineEntry& entry) {
    return entry.tookUs < 0 ? QString()
                            : QStringLiteral("%1 ms").arg(static_cast<double>(entry.tookUs) / 1e3, 0, 'f', 1);
}

} // namespace

void TimelineModel::append(const TimelineEntries& entries) {
    const int count = rowCount();
    if (count + entries.size() > mostEntries) {
        const int trimmed = qMin(count, qMax(trimmedAtOnce, count + entries.size() - mostEntries));
        beginRemoveRows({}, 0, trimmed - 1);
        m_entries.erase(m_entries.begin(), m_entries.begin() + trimmed);
        endRemoveRows();
    }
    beginInsertRows({}, rowCount(), rowCount() + entries.size() - 1);
    m_entries.insert(m_entries.end(), entries.begin(), entries.end());
    endInsertRows();
}

int TimelineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int TimelineModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : COLUMNS;
}

QVariant TimelineModel::data(const QModelIndex& index, int role) const {
    const TimelineEntry& entry = this->entry(index.row());
    if (role == Qt::ForegroundRole) {
        return colourOf(entry.kind());
    }
    if (role == Qt::TextAlignmentRole) {
        return int(Qt::AlignVCenter |
                   (index.column() == TIME || index.column() == DURATION ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (index.column()) {
    case TIME:
        return QString::number(static_cast<double>(entry.timeUs) / 1e6, 'f', 6);
    case OBJECT:
        return entry.object > 0 ? QString::number(entry.object) : QString();
    case KIND:
        return QLatin1String(timelineKindName(entry.kind()));
    case TEXT:
        return timelineText(entry);
    case DURATION:
        return duration(entry);
    default:
        return {};
    }
}

QVariant TimelineModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const char* const titles[COLUMNS] = {"Time (s)", "Object", "Kind", "What happened", "Duration"};
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(QLatin1String(titles[section]))
                                                                    : QVariant();
}

} // namespace tv
