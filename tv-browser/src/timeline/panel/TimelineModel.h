/** The entries of the timeline as a table for views. */
#ifndef TIMELINEMODEL_H
#define TIMELINEMODEL_H

#include "timeline/TimelineEntry.h"

#include <QAbstractTableModel>
#include <deque>

namespace tv {

/** Keeps the newest entries. Their text is made when a view asks for it. */
class TimelineModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { TIME, OBJECT, KIND, TEXT, DURATION, COLUMNS };

    /** Adds what is new, and drops the oldest entries when there are too many. */
    void append(const TimelineEntries& entries);
    const TimelineEntry& entry(int row) const { return m_entries[static_cast<size_t>(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::deque<TimelineEntry> m_entries;
};

} // namespace tv

#endif
