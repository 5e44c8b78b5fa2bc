/** The present state of each A/V Control object and its player, as a table. */
#ifndef OBJECTTABLE_H
#define OBJECTTABLE_H

#include "timeline/TimelineEntry.h"

#include <QMap>
#include <QTableWidget>
#include <QTimer>

namespace tv {

/** Follows the timeline for the objects, and reads their players from time to time while the table is visible. */
class ObjectTable : public QTableWidget {
    Q_OBJECT
public:
    ObjectTable();

    /** Adds what is new; also while the table is hidden. */
    void append(const TimelineEntries& entries);

signals:
    /** A person has chosen an object. @param object 0: none */
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
        QString window; ///< position and size on the screen
        QString url;
    };

    static void follow(Object& object, const TimelineEntry& entry);
    void toggle(int object);
    void refresh();
    void showObject(int row, int number, const Object& object);
    void showPlayer(int row, int player);
    void setCell(int row, int column, const QString& text);

    QTimer m_timer;
    QMap<int, Object> m_objects; ///< by number
    int m_chosen = 0;            ///< 0: none
};

} // namespace tv

#endif
