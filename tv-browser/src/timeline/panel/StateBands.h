/**
 * The state of each object over the last minute, as a band of colours with marks for errors and stalls.
 */
#ifndef STATEBANDS_H
#define STATEBANDS_H

#include "timeline/TimelineEntry.h"

#include <QColor>
#include <QMap>
#include <QTimer>
#include <QWidget>
#include <optional>

namespace tv {

class StateBands : public QWidget {
    Q_OBJECT
public:
    /** @param startUs moment from which the entries' times count, CLOCK_MONOTONIC in microseconds */
    explicit StateBands(int64_t startUs);

    void append(const TimelineEntries& entries);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Change {
        int64_t timeUs;
        std::optional<PlayState> state; ///< none: the object is gone
    };
    struct Mark {
        int64_t timeUs;
        QColor colour;
        QString text;
    };
    struct Band {
        QVector<Change> changes;
        QVector<Mark> marks;
    };

    void addMark(const TimelineEntry& entry, const QColor& colour);
    void forgetOld(int64_t beforeUs);
    QList<int> shownObjects() const;
    int64_t spanUs() const;
    double xOf(int64_t timeUs) const;
    QRectF areaOf(int row) const;
    void paintBand(QPainter& painter, const QRectF& area, const Band& band) const;
    QString textAt(const QPoint& point) const;

    const int64_t m_startUs;
    QTimer m_timer;
    QMap<int, Band> m_bands; ///< by object
    int64_t m_nowUs = 0;     ///< the right edge, since the start
};

/** @return the colour of a `playState` */
QColor playStateColour(PlayState state);

} // namespace tv

#endif
