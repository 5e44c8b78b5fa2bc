/** Notices on the screen. */
#ifndef SCREENNOTICE_H
#define SCREENNOTICE_H

#include "timeline/TimelineEntry.h"

#include <QLabel>
#include <QTimer>

namespace tv {

/** A few lines at the foot of the screen that the user needs now: what happened, and what to do. */
class ScreenNotice : public QLabel {
    Q_OBJECT
public:
    /** @param screenView its parent */
    explicit ScreenNotice(QWidget* screenView);

    /** Shows a notice about the page or the window for some seconds; it replaces the present one. */
    void notify(const QString& what, const QString& advice = {});

    /** Hides a notice about the page or the window; one about an object stays. */
    void clearPage();

    /** Shows the errors and stalls among the entries. Each is hidden when its object plays or has gone. */
    void showProblems(const TimelineEntries& entries);

protected:
    bool eventFilter(QObject* screenView, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void show(int object, const QStringList& lines);
    void reposition();

    QTimer m_end;
    QStringList m_lines;
    int m_object = 0; ///< number of the object that the notice is about; 0: page or window
};

} // namespace tv

#endif
