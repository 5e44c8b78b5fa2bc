/**
 * The scripted television: players of the adaptation layer, message channel and media synchronisation. Commands are
 * noted in the journal with their player's handle; queries (position, duration, speed) are only answered.
 */
#ifndef FAKE_PLAYER_H
#define FAKE_PLAYER_H

#include "medialib_components.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace fake {

struct Television {
    struct Player {
        Hbbtv_AL_MediaPlayerCallback callback;
        void* userData;
    };

    std::map<int, Player> players; /**< the open ones, by handle */
    int nextHandle = 7;
    bool opens = true;                           /**< else no player can be had */
    std::set<std::string> refused;               /**< commands that fail, for example "Play" */
    std::set<std::string> quiet = {"SetWindow"}; /**< commands that the journal leaves out */
    std::function<void()> duringStop;            /**< runs inside every Stop */
    int64_t position = 0;
    int duration = 60000;
    int speedInForce = 1;
    sub_properties_t subtitle = {};                 /**< the track last added */
    std::vector<Hbbtv_AL_ComponentInfo> components; /**< of every player, where the platform lists them */
    void* component = nullptr;                      /**< the record last selected or unselected */

    /** Calls a player's callback on a thread of its own and waits for it to return. */
    void report(int handle, int event, int code, void* block);
};

Television& television();

} // namespace fake

#endif
