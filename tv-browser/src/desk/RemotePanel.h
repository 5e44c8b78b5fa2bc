/** The remote control on the screen. */
#ifndef REMOTEPANEL_H
#define REMOTEPANEL_H

#include "remote/KeyRepeat.h"

#include <QWidget>

class QGridLayout;

namespace tv {

/** Buttons for all keys that have one, pressed and held with the mouse. */
class RemotePanel : public QWidget {
    Q_OBJECT
public:
    /** @param spatialNavigation whether the arrow keys move the focus at the start */
    explicit RemotePanel(bool spatialNavigation);

    QSize sizeHint() const override;

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);
    /** The user wants the arrow keys to move the focus, or no longer. */
    void spatialNavigationSwitched(bool on);

private:
    void addButton(QGridLayout& grid, const RemoteKey& key);

    KeyRepeat m_heldKey;
};

} // namespace tv

#endif
