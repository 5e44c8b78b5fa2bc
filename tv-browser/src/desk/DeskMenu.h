/** The menu of the television's window. */
#ifndef DESKMENU_H
#define DESKMENU_H

#include "faults/InjectedReport.h"

#include <QList>
#include <QMenu>

namespace tv {

/** Offers the desk's actions, the network faults, and the player reports that can be injected. */
class DeskMenu : public QMenu {
    Q_OBJECT
public:
    /** @param faults the action that shows the panel of network faults @param window its parent */
    DeskMenu(const QList<QAction*>& actions, QAction* faults, QWidget* window);

    /** Shows the menu with its first entry chosen, so that the keyboard alone is enough. */
    void open();

signals:
    /** The user wants the player to send a report. */
    void reportChosen(const InjectedReport& report);
};

} // namespace tv

#endif
