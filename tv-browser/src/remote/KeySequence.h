/** Sequences of keys that the command line plays. */
#ifndef KEYSEQUENCE_H
#define KEYSEQUENCE_H

#include "base/Result.h"
#include "remote/DeskKeys.h"
#include "remote/RemoteKeys.h"

#include <QList>
#include <QString>

namespace tv {

/** A step of a key sequence: a key to press, or a pause. */
struct KeyStep {
    const RemoteKey* key;   ///< null for a pause or a key of the desk
    const DeskKey* deskKey; ///< null for a pause or a key of the remote control
    double seconds;         ///< how long the key is held, or the pause lasts
};

/**
 * Reads a key sequence such as "RIGHT,ENTER,wait:2,BACK:1.5,F9".
 * @return the steps; or the first part that is not a key's name, KEY:SECONDS or wait:SECONDS
 */
Result<QList<KeyStep>, QString> parseKeySequence(const QString& text);

} // namespace tv

#endif
