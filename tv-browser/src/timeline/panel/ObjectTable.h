/**
 * What each A/V Control object and its player are at now.
 */
#ifndef OBJECTTABLE_H
#define OBJECTTABLE_H

#include "timeline/TimelineEntry.h"

#include <QMap>
#include <QTableWidget>
#include <QTimer>

namespace tv {

class ObjectTable : public QTableWidget {
    Q_OBJECT
public:
    ObjectTable();

    void append(const TimelineEntries& entries);

signals:
    /** A person chose an object; 0: none. */
    void chosen(int object);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Object {
        int player = -1;
        PlayState state = PlayState::STOPPED;
        int bufferPercent = 100;
        QString window;
        QString url;
    };

    void refresh();
    void setCell(int row, int column, const QString& text);

    QTimer m_timer;
    QMap<int, Object> m_objects;
};

} // namespace tv

#endif
