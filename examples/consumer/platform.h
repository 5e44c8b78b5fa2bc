/** What the example asks of its own player beside medialib.h. */
#ifndef PLATFORM_H
#define PLATFORM_H

/** The player reports that the media plays. */
void reportPlaying();

#endif
