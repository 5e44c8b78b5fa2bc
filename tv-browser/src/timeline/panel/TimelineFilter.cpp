#include "timeline/panel/TimelineFilter.h"

#include "timeline/TimelineText.h"
#include "timeline/panel/TimelineModel.h"

namespace tv {

void TimelineFilter::showKinds(const Kinds& kinds, bool visible) {
    m_kinds = visible ? m_kinds | kinds : m_kinds & ~kinds;
    invalidateFilter();
}

void TimelineFilter::showObject(int object) {
    m_object = object;
    invalidateFilter();
}

void TimelineFilter::showText(const QString& text) {
    m_text = text;
    invalidateFilter();
}

bool TimelineFilter::filterAcceptsRow(int row, const QModelIndex&) const {
    const TimelineEntry& entry = static_cast<const TimelineModel*>(sourceModel())->entry(row);
    return m_kinds[static_cast<size_t>(entry.kind())] && (m_object == 0 || entry.object == m_object) &&
           (m_text.isEmpty() || timelineText(entry).contains(m_text, Qt::CaseInsensitive));
}

} // namespace tv
