/**
 * The keyboard as a remote control.
 */
#ifndef KEYBOARDREMOTE_H
#define KEYBOARDREMOTE_H

#include "remote/KeyRepeat.h"

class QKeyEvent;

namespace tv {

class KeyboardRemote : public QObject {
    Q_OBJECT
public:
    KeyboardRemote();

    /** A held key repeats as on a remote control, not as the display repeats it. */
    void press(const QKeyEvent& event);

    /** A key whose press went elsewhere, to a menu or a shortcut of the window, is not released here. */
    void release(const QKeyEvent& event);

    /** Releases what is held: the keyboard is another window's or widget's now, and so will the release be. */
    void leave();

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

private:
    KeyRepeat m_hold;
    QTimer m_release; ///< while the display may yet repeat the key that it has released
};

} // namespace tv

#endif
