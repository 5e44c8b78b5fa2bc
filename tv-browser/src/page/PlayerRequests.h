/**
 * The requests of the players go out as those of the page do: with its user agent, its cookies and its address.
 */
#ifndef PLAYERREQUESTS_H
#define PLAYERREQUESTS_H

class QWebFrame;

namespace tv {

class Profile;

class PlayerRequests {
public:
    /** @param profile outlives this object. @param mainFrame its address is followed */
    PlayerRequests(Profile& profile, const QWebFrame& mainFrame);
    ~PlayerRequests();

    PlayerRequests(const PlayerRequests&) = delete;
    PlayerRequests& operator=(const PlayerRequests&) = delete;

private:
    static char* cookies(const char* url, void* profile);
};

} // namespace tv

#endif
