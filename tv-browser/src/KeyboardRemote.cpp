#include "KeyboardRemote.h"

#include "RemoteKeys.h"

#include <QKeyEvent>

KeyboardRemote::KeyboardRemote() {
    connect(&m_hold, &KeyHold::remoteKey, this, &KeyboardRemote::remoteKey);
}

void KeyboardRemote::press(const QKeyEvent& event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event.key());
    if (key && !event.isAutoRepeat() &&
        !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        m_hold.press(*key);
    }
}

void KeyboardRemote::release(const QKeyEvent& event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event.key());
    if (key && !event.isAutoRepeat() && key == m_hold.held()) {
        m_hold.release();
    }
}

void KeyboardRemote::leave() {
    m_hold.release();
}
