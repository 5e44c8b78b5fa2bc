/** Which entries of the timeline are shown. */
#ifndef TIMELINEFILTER_H
#define TIMELINEFILTER_H

#include "timeline/TimelineEntry.h"

#include <QSortFilterProxyModel>
#include <bitset>

namespace tv {

/** Shows the entries of a TimelineModel that are of a wanted kind and object, and contain a wanted text. */
class TimelineFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    using Kinds = std::bitset<timelineKindCount>;

    TimelineFilter() { m_kinds.set(); }

    /** Shows or hides kinds. */
    void showKinds(const Kinds& kinds, bool visible);

    /** Shows only what belongs to that object; 0: to any or none. */
    void showObject(int object);

    /** Shows only entries that contain that text, in upper or lower case; an empty text shows all. */
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
