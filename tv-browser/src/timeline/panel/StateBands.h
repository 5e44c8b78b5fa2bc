/** The history of each object's state as a chart. */
#ifndef STATEBANDS_H
#define STATEBANDS_H

#include "timeline/TimelineEntry.h"

#include <QColor>
#include <QMap>
#include <QTimer>
#include <QWidget>
#include <optional>

namespace tv {

/**
 * Draws a band of colours for each object, one colour for each state of the last minute, with markers for errors and
 * stalls. Tool tips say which state it was since when, and what a marker stands for.
 */
class StateBands : public QWidget {
    Q_OBJECT
public:
    /** @param startUs moment from which the entries' times count, CLOCK_MONOTONIC in microseconds */
    explicit StateBands(int64_t startUs);

    /** Adds what is new; also while the chart is hidden. */
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
        std::optional<PlayState> state; ///< without one the object is gone
    };
    struct Marker {
        int64_t timeUs;
        QColor colour;
        QString text;
    };
    struct Band {
        QVector<Change> changes;
        QVector<Marker> markers;
    };

    void addMarker(const TimelineEntry& entry, const QColor& colour);
    void forgetOld(int64_t beforeUs);
    QList<int> shownObjects() const;
    int64_t spanUs() const;
    double xOf(int64_t timeUs) const;
    QRectF areaOf(int row) const;
    static void paintLegend(QPainter& painter);
    void paintScale(QPainter& painter, int bottom) const;
    void paintBand(QPainter& painter, const QRectF& area, const Band& band) const;
    QString toolTipAt(const QPoint& point) const;

    const int64_t m_startUs;
    QTimer m_timer;
    QMap<int, Band> m_bands; ///< by object
    int64_t m_nowUs = 0;     ///< time at the right edge, since the start
};

/** @return the colour of a `playState` */
QColor playStateColour(PlayState state);

} // namespace tv

#endif
