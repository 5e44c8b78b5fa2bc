/**
 * What a person in front of the picture has to know now, in a few lines over its foot: what happened, and what to do.
 */
#ifndef SCREENNOTICE_H
#define SCREENNOTICE_H

#include "timeline/TimelineEntry.h"

#include <QLabel>
#include <QTimer>

namespace tv {

class ScreenNotice : public QLabel {
    Q_OBJECT
public:
    /** @param picture what it lies on; takes it */
    explicit ScreenNotice(QWidget* picture);

    /** Shows a notice of the page or the window for some seconds, in place of another one. */
    void tell(const QString& what, const QString& advice = {});

    /** Takes a notice of the page or the window away; one of an object stays. */
    void clearPage();

    /** Shows errors and stalls. They go with their object, or when it plays. */
    void append(const TimelineEntries& entries);

protected:
    bool eventFilter(QObject* picture, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void show(int object, const QStringList& lines);
    void place();

    QTimer m_end;
    QStringList m_lines;
    int m_object = 0; ///< that the notice is about; 0: page or window
};

} // namespace tv

#endif
