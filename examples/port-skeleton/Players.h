/** The players that are open. Put the television's own player where the comment in Player says. */
#ifndef PORT_SKELETON_PLAYERS_H
#define PORT_SKELETON_PLAYERS_H

#include "medialib.h"

#include <memory>
#include <string>

namespace skeleton {

/** Thread: the browser's plug-in thread; what the player's own thread reads needs a lock. */
struct Player {
    std::string source;
    Hbbtv_AL_MediaPlayerCallback callback = nullptr;
    void* userData = nullptr;
    // The television's own player goes here.
};

/** @return the new player's handle; handles only count up, so that none comes back */
int openPlayer();

/** @return false when the handle is not open */
bool closePlayer(int handle);

/** @return null when the handle is not open */
std::shared_ptr<Player> findPlayer(int handle);

} // namespace skeleton

#endif
