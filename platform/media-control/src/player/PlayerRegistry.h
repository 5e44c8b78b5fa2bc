/** The players of the process. */
#ifndef MEDIA_CONTROL_PLAYERREGISTRY_H
#define MEDIA_CONTROL_PLAYERREGISTRY_H

#include "GuardedMutex.h"
#include "player/Player.h"

#include <map>
#include <memory>
#include <vector>

namespace media {

/** The players that are open, by handle. Threads: any. */
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

    mutable support::Mutex m_mutex;
    std::map<int, std::shared_ptr<Player>> m_players GUARDED_BY(m_mutex);
    int m_nextHandle GUARDED_BY(m_mutex) = 0; // never reused, so a late user of an old handle meets no new player
};

} // namespace media

#endif
