/** The remote control's keys: the one table of what each key is to pages, the keyboard, the help and the mouse. */
#ifndef REMOTEKEYS_H
#define REMOTEKEYS_H

#include "remote/Keyset.h"

#include <QString>
#include <array>

namespace tv {

/** Where a key is on the remote control that is shown on the screen, and how it looks. */
struct RemoteButton {
    int row;                      ///< from 1; 0 for a key that has no button
    int column;                   ///< from 0
    int columnCount;              ///< how many buttons share the row evenly
    const char* label;            ///< UTF-8
    const char* colour = nullptr; ///< null for the usual one
};

struct RemoteKey {
    const char* name;                ///< of the page's constant without `VK_`
    int code;                        ///< `keyCode` in the page's key events
    Keyset keyset;                   ///< that the key belongs to
    int engineKey;                   ///< Qt::Key for which the engine has a default action, else Key_unknown
    const char* text;                ///< that the key types
    std::array<int, 3> keyboardKeys; ///< each a Qt::Key that acts as this key; 0: none
    const char* keyboardText;        ///< the same for people; keys with the same text share a line of the help
    RemoteButton button;
};

inline constexpr int remoteKeyCount = 31;

/** @return all keys */
const std::array<RemoteKey, remoteKeyCount>& remoteKeys();

/** @return the key of that name in upper or lower case, with or without `VK_`; null when there is none */
const RemoteKey* remoteKeyNamed(const QString& name);

/** @return the key with that `keyCode`; null when there is none */
const RemoteKey* remoteKeyOfCode(int code);

/** @return the key that a Qt::Key of the keyboard acts as; null when there is none */
const RemoteKey* remoteKeyOfKeyboard(int qtKey);

/** @return the key sets that the remote control has keys of */
int remoteKeysets();

/** @return a script that defines `VK_...` and `KeyEvent.VK_...` in a page */
QString remoteKeyConstantsScript();

} // namespace tv

#endif
