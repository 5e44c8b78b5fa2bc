#include "Players.h"

#include <map>
#include <mutex>

namespace skeleton {
namespace {

std::mutex mutex; // guards all below
std::map<int, std::shared_ptr<Player>> players;
int nextHandle = 0;

} // namespace

int openPlayer() {
    const std::lock_guard<std::mutex> lock(mutex);
    players[nextHandle] = std::make_shared<Player>();
    return nextHandle++;
}

bool closePlayer(int handle) {
    const std::lock_guard<std::mutex> lock(mutex);
    return players.erase(handle) > 0;
}

std::shared_ptr<Player> findPlayer(int handle) {
    const std::lock_guard<std::mutex> lock(mutex);
    const auto found = players.find(handle);
    return found == players.end() ? nullptr : found->second;
}

} // namespace skeleton
