/** Messages of the engine's libraries in a run without a desktop. */
#ifndef HEADLESSMESSAGES_H
#define HEADLESSMESSAGES_H

namespace tv {

/** Drops the messages about the missing desktop, and no others. Call it before there is an application. */
void dropMissingDesktopMessages();

} // namespace tv

#endif
