/**
 * The timeline beside the picture: states as bands, objects, a list with filters, and one entry whole.
 */
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

class TimelinePanel : public QWidget {
    Q_OBJECT
public:
    /** @param startUs as of StateBands */
    explicit TimelinePanel(int64_t startUs);

    /** Adds what is new; also while the panel is hidden. */
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
    QLineEdit* m_text;
    QTableView* m_list;
    QPlainTextEdit* m_whole;
    bool m_follows = true; ///< the list stays at its newest entry
};

} // namespace tv

#endif
