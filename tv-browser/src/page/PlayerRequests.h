/** The HTTP requests of the players. */
#ifndef PLAYERREQUESTS_H
#define PLAYERREQUESTS_H

class QWebFrame;

namespace tv {

class Profile;

/** Gives the players the page's user agent and cookies, and its address, which relative addresses are resolved against.
 */
class PlayerRequests {
public:
    /** @param profile outlives this object @param mainFrame whose address is followed while it exists */
    PlayerRequests(Profile& profile, const QWebFrame& mainFrame);
    ~PlayerRequests();

    PlayerRequests(const PlayerRequests&) = delete;
    PlayerRequests& operator=(const PlayerRequests&) = delete;

private:
    static char* cookies(const char* url, void* profile);
};

} // namespace tv

#endif
