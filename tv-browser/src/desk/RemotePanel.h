/**
 * The remote control on the screen, for the mouse.
 */
#ifndef REMOTEPANEL_H
#define REMOTEPANEL_H

#include "remote/KeyRepeat.h"

#include <QWidget>

class QGridLayout;

namespace tv {

class RemotePanel : public QWidget {
    Q_OBJECT
public:
    /** @param spatialNavigation whether the arrow keys move the focus at first */
    explicit RemotePanel(bool spatialNavigation);

    QSize sizeHint() const override;

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);
    /** The user has switched whether the arrow keys move the focus. */
    void spatialNavigationSwitched(bool on);

private:
    void addButton(QGridLayout& grid, int row, int column, int span, const char* name, const QString& label,
                   const char* colour);

    KeyRepeat m_hold;
};

} // namespace tv

#endif
