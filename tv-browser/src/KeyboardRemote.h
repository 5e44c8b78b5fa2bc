/**
 * The keyboard as a remote control.
 */
#ifndef KEYBOARDREMOTE_H
#define KEYBOARDREMOTE_H

#include <QObject>
#include <QSet>

class QKeyEvent;
struct RemoteKey;

class KeyboardRemote : public QObject {
    Q_OBJECT
public:
    void press(const QKeyEvent& event);

    /** A key whose press went elsewhere, to a menu or a shortcut of the window, is not released here. */
    void release(const QKeyEvent& event);

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

private:
    QSet<const RemoteKey*> m_pressed;
};

#endif
