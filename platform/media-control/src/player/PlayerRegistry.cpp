#include "player/PlayerRegistry.h"

namespace media {
namespace {

constexpr std::chrono::milliseconds EXIT_LIMIT(3500);

} // namespace

PlayerRegistry& PlayerRegistry::instance() {
    static PlayerRegistry registry;
    return registry;
}

/** The process ends: a pipeline that plays on while libraries are taken down would crash it. */
PlayerRegistry::~PlayerRegistry() {
    for (const auto& [handle, player] : m_players) {
        player->close();
    }
    m_players.clear();
    PlayerThread::waitForAll(EXIT_LIMIT);
}

int PlayerRegistry::open() {
    const support::Lock lock(m_mutex);
    const int handle = m_nextHandle;
    m_players.emplace(handle, std::make_shared<Player>(handle));
    ++m_nextHandle;
    return handle;
}

bool PlayerRegistry::close(int handle) {
    std::shared_ptr<Player> player;
    {
        const support::Lock lock(m_mutex);
        const auto found = m_players.find(handle);
        if (found == m_players.end()) {
            return false;
        }
        player = std::move(found->second);
        m_players.erase(found);
    }
    player->close();
    return true;
}

std::shared_ptr<Player> PlayerRegistry::find(int handle) const {
    const support::Lock lock(m_mutex);
    const auto found = m_players.find(handle);
    return found == m_players.end() ? nullptr : found->second;
}

std::vector<std::shared_ptr<Player>> PlayerRegistry::all() const {
    const support::Lock lock(m_mutex);
    std::vector<std::shared_ptr<Player>> players;
    for (const auto& [handle, player] : m_players) {
        players.push_back(player);
    }
    return players;
}

} // namespace media
