/** The panel that shows the timeline. */
#ifndef TIMELINEPANEL_H
#define TIMELINEPANEL_H

#include "timeline/panel/ObjectTable.h"
#include "timeline/panel/StateBands.h"
#include "timeline/panel/TimelineFilter.h"
#include "timeline/panel/TimelineModel.h"

#include <QWidget>

class QGridLayout;
class QLineEdit;
class QPlainTextEdit;
class QTableView;

namespace tv {

/**
 * Shows the timeline beside the screen: the objects' states as bands, the objects as a table, the entries as a list
 * with filters, and all fields of one entry. Until a person chooses an entry, that is the newest problem.
 */
class TimelinePanel : public QWidget {
    Q_OBJECT
public:
    /** @param startUs as of StateBands */
    explicit TimelinePanel(int64_t startUs);

    /** Adds what is new; also while the panel is hidden, so that it has a past to show. */
    void append(const TimelineEntries& entries);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* list, QEvent* event) override;

private:
    QGridLayout* makeFilters();
    QTableView* makeList();
    void follow(QTableView& list);
    void showEntry(const TimelineEntry& entry);

    StateBands* m_bands;
    ObjectTable* m_objects;
    TimelineModel m_model;
    TimelineFilter m_filter;
    QLineEdit* m_search;
    QTableView* m_list;
    QPlainTextEdit* m_fields;
    bool m_follows = true; ///< the list stays scrolled to its newest entry
};

} // namespace tv

#endif
