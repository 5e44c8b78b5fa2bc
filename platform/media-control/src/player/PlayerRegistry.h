/** The players that are open, by handle. */
#ifndef MEDIA_CONTROL_PLAYERREGISTRY_H
#define MEDIA_CONTROL_PLAYERREGISTRY_H

#include "player/Player.h"

#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace media {

/** Threads: any. */
class PlayerRegistry {
public:
    static PlayerRegistry& instance();

    /** @return the new player's handle. @throws std::system_error when there is no thread for it */
    int open();

    /** @return false when the handle is not open */
    bool close(int handle);

    /** @return null when the handle is not open */
    std::shared_ptr<Player> find(int handle) const;

    /** @return the players in the order in which they were opened */
    std::vector<std::shared_ptr<Player>> all() const;

private:
    PlayerRegistry() = default;
    ~PlayerRegistry();

    mutable std::mutex m_mutex; // guards all below
    std::map<int, std::shared_ptr<Player>> m_players;
    int m_nextHandle = 0; // only counts up, so that a late user of an old handle meets no new player
};

} // namespace media

#endif
