/**
 * Keeps quiet what the engine's libraries say about the desktop that is missing in a run without one.
 */
#ifndef HEADLESSMESSAGES_H
#define HEADLESSMESSAGES_H

namespace tv {

/** Call before there is an application. Everything else that the libraries say stays as it is. */
void dropMissingDesktopMessages();

} // namespace tv

#endif
