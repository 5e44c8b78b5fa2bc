/**
 * A key of the remote control while a finger is on it: as long as it is held, it comes again and again.
 */
#ifndef KEYREPEAT_H
#define KEYREPEAT_H

#include <QObject>
#include <QTimer>

namespace tv {

struct RemoteKey;

class KeyRepeat : public QObject {
    Q_OBJECT
public:
    explicit KeyRepeat(QObject* parent = nullptr);

    /** Presses a key; one that is still held is released before. */
    void press(const RemoteKey& key);

    /** Releases the key, if one is held. */
    void release();

    /** @return the key that is held; null: none */
    const RemoteKey* held() const { return m_key; }

signals:
    void remoteKey(const RemoteKey& key, bool pressed, bool isRepeat);

private:
    const RemoteKey* m_key = nullptr;
    QTimer m_repeat;
};

} // namespace tv

#endif
