/**
 * The keys of the remote control: their names, the codes that pages see, and the keyboard keys that stand for them.
 */
#ifndef REMOTEKEYS_H
#define REMOTEKEYS_H

#include "remote/DeskKeys.h"

#include <QList>
#include <QString>
#include <optional>

namespace tv {

/** Sets of keys that an application asks for (OIPF DAE 7.2.5). */
enum Keyset {
    KEYSET_RED = 0x1,
    KEYSET_GREEN = 0x2,
    KEYSET_YELLOW = 0x4,
    KEYSET_BLUE = 0x8,
    KEYSET_NAVIGATION = 0x10,
    KEYSET_VCR = 0x20,
    KEYSET_INFO = 0x80,
    KEYSET_NUMERIC = 0x100,
    KEYSET_OTHER = 0x400,
};

struct RemoteKey {
    const char* name; /**< name of the page's constant without `VK_` */
    int code;         /**< `keyCode` in the page's key events */
    int keyset;       /**< the Keyset that the key belongs to */
    int engineKey;    /**< Qt::Key that makes the engine do what it does for the key by itself, else Key_unknown */
    const char* text; /**< text that the key types */
};

/** @return the remote key of that name in any case, `VK_` in front allowed; null when there is none. */
const RemoteKey* remoteKeyNamed(const QString& name);

/** @return the remote key with that `keyCode`; null when there is none. */
const RemoteKey* remoteKeyOfCode(int code);

/** @return the key sets of which the remote control has keys, and KEYSET_OTHER */
int remoteKeysets();

/** @return the remote key that a Qt::Key of the keyboard stands for; null when it stands for none. */
const RemoteKey* remoteKeyOfKeyboard(int qtKey);

/** @return a script that defines `VK_...` and `KeyEvent.VK_...` in a page. */
QString remoteKeyConstantsScript();

/** A step of a key sequence: a key to press, or a pause. */
struct RemoteKeyStep {
    const RemoteKey* key;   /**< null for a pause or a key of the desk */
    const DeskKey* deskKey; /**< null for a pause or a key of the remote control */
    double seconds;         /**< how long the key is held, or the pause lasts */
};

/**
 * Reads a key sequence such as "RIGHT,ENTER,wait:2,BACK:1.5,F9".
 * @param wrong receives the first part that is neither a key's name, `KEY:SECONDS`, nor `wait:SECONDS`, with 0 to
 * 1000000 seconds
 */
std::optional<QList<RemoteKeyStep>> parseRemoteKeySteps(const QString& text, QString& wrong);

} // namespace tv

#endif
