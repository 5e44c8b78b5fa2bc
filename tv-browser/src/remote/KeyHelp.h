/** What the keys of the keyboard do, for people. */
#ifndef KEYHELP_H
#define KEYHELP_H

#include <QString>

namespace tv {

/**
 * @return tables of the keyboard keys that act as the remote control's keys and as the desk's, for a fixed-width font:
 *         lines of at most 80 characters, each with its end
 */
QString keyHelpText();

} // namespace tv

#endif
