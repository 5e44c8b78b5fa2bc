/** The keyboard as a remote control. */
#ifndef KEYBOARDREMOTE_H
#define KEYBOARDREMOTE_H

#include "remote/KeyRepeat.h"

class QKeyEvent;

namespace tv {

/** Turns the key events of a window into keys of the remote control. */
class KeyboardRemote : public QObject {
    Q_OBJECT
public:
    KeyboardRemote();

    /** Handles a press. A held key repeats at the pace of a remote control, not at that of the display server. */
    void press(const QKeyEvent& event);

    /** Handles a release; ignores that of a key whose press went elsewhere, such as to a menu of the window. */
    void release(const QKeyEvent& event);

    /** Releases the held key: another window or widget has the keyboard now, and will receive its release. */
    void leave();

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

private:
    KeyRepeat m_hold;
    QTimer m_release; ///< runs while the display server may still repeat the key that it has released
};

} // namespace tv

#endif
