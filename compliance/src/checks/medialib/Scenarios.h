/** What a player goes through so that a rule has reports to judge. No scenario fails by itself. */
#ifndef COMPLIANCE_SCENARIOS_H
#define COMPLIANCE_SCENARIOS_H

#include "kit/TestedPlayer.h"

namespace compliance {

/** Start, pause, resume, seek, speed, stop, and a source that is not there. */
void liveThrough(Trial& trial);

// Each waits afterwards for what should not come.
void playToTheEnd(Trial& trial);
void failToPlay(Trial& trial);
void stopWhilePlaying(Trial& trial);
void removeWhilePlaying(Trial& trial);
void closeAfterPlaying(Trial& trial);

} // namespace compliance

#endif
