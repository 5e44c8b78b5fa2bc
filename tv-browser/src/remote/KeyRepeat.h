/** Keys of the remote control that are held. */
#ifndef KEYREPEAT_H
#define KEYREPEAT_H

#include <QObject>
#include <QTimer>

namespace tv {

struct RemoteKey;

/** The key that a finger is on: it is reported as pressed, then again and again while it is held, then as released. */
class KeyRepeat : public QObject {
    Q_OBJECT
public:
    explicit KeyRepeat(QObject* parent = nullptr);

    /** Presses a key. One that is still held is released first. */
    void press(const RemoteKey& key);

    /** Releases the key, if one is held. */
    void release();

    /** @return the key that is held; null when there is none */
    const RemoteKey* held() const { return m_key; }

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

private:
    const RemoteKey* m_key = nullptr;
    QTimer m_repeat;
};

} // namespace tv

#endif
