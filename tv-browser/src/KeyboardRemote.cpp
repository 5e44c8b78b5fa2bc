#include "KeyboardRemote.h"

#include "RemoteKeys.h"

#include <QKeyEvent>

void KeyboardRemote::press(const QKeyEvent& event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event.key());
    if (key && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        m_pressed.insert(key);
        emit remoteKey(*key, true, event.isAutoRepeat());
    }
}

void KeyboardRemote::release(const QKeyEvent& event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event.key());
    if (key && !event.isAutoRepeat() && m_pressed.remove(key)) {
        emit remoteKey(*key, false, false);
    }
}
