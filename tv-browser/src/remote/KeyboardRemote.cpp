#include "remote/KeyboardRemote.h"

#include "remote/RemoteKeys.h"

#include <QKeyEvent>

namespace tv {

namespace {

/** A display server repeats a key by a release and a press at once; no finger is that quick. */
constexpr int repeatedWithinMs = 20;

} // namespace

KeyboardRemote::KeyboardRemote() {
    m_release.setSingleShot(true);
    m_release.setInterval(repeatedWithinMs);
    connect(&m_release, &QTimer::timeout, &m_hold, &KeyRepeat::release);
    connect(&m_hold, &KeyRepeat::remoteKey, this, &KeyboardRemote::remoteKey);
}

void KeyboardRemote::press(const QKeyEvent& event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event.key());
    if (!key || event.isAutoRepeat() ||
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return;
    }
    m_release.stop();
    if (key != m_hold.held()) {
        m_hold.press(*key);
    }
}

void KeyboardRemote::release(const QKeyEvent& event) {
    const RemoteKey* key = remoteKeyOfKeyboard(event.key());
    if (key && !event.isAutoRepeat() && key == m_hold.held()) {
        m_release.start();
    }
}

void KeyboardRemote::leave() {
    m_release.stop();
    m_hold.release();
}

} // namespace tv
