#include "remote/KeyRepeat.h"

#include "remote/RemoteKeys.h"

namespace tv {

namespace {

// As infrared remote controls do.
constexpr int firstRepeatMs = 500;
constexpr int repeatMs = 110;

} // namespace

KeyRepeat::KeyRepeat(QObject* parent) : QObject(parent) {
    m_repeat.setTimerType(Qt::PreciseTimer);
    connect(&m_repeat, &QTimer::timeout, this, [this] {
        m_repeat.start(repeatMs);
        emit remoteKey(*m_key, true, true);
    });
}

void KeyRepeat::press(const RemoteKey& key) {
    release();
    m_key = &key;
    m_repeat.start(firstRepeatMs);
    emit remoteKey(key, true, false);
}

void KeyRepeat::release() {
    m_repeat.stop();
    if (const RemoteKey* key = m_key) {
        m_key = nullptr;
        emit remoteKey(*key, false, false);
    }
}

} // namespace tv
