/**
 * The entries of a TimelineModel that a person wants to see.
 */
#ifndef TIMELINEFILTER_H
#define TIMELINEFILTER_H

#include "timeline/TimelineEntry.h"

#include <QSortFilterProxyModel>
#include <bitset>

namespace tv {

class TimelineFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    using Kinds = std::bitset<timelineKindCount>;

    TimelineFilter() { m_kinds.set(); }

    /** Shows or hides kinds. */
    void showKinds(const Kinds& kinds, bool visible);

    /** Shows only what belongs to that object; 0: all. */
    void showObject(int object);

    /** Shows only entries whose text has this in it, in any case of letters; an empty one shows all. */
    void showText(const QString& text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    Kinds m_kinds;
    int m_object = 0;
    QString m_text;
};

} // namespace tv

#endif
