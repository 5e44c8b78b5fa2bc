/** What a television keeps from one start to the next. */
#ifndef PROFILE_H
#define PROFILE_H

#include "page/CookieJar.h"

#include <QString>

namespace tv {

/** Cookies, the storage of pages, the port of local pages, and the user agent. */
class Profile {
public:
    /**
     * @param folder    keeps the profile, in the files `cookies`, `port` and `user-agent` and the folder `storage`.
     *                  Empty: the profile ends with the program, and nothing is written
     * @param userAgent replaces the profile's own; empty for the profile's own
     */
    Profile(const QString& folder, const QString& userAgent);

    /** Removes the cookies and the storage from a profile folder. Its user agent and port stay. */
    static void clearFolder(const QString& folder);

    CookieJar& cookies() { return m_cookies; }

    /** @return the value of the User-Agent header, for the page and the players */
    const QString& userAgent() const { return m_userAgent; }

    /**
     * Local pages are served on the port that served them last: a page's storage belongs to an address with that port.
     * @return the port; 0 when there is none yet
     */
    int localPort() const;
    void setLocalPort(int port) const;

private:
    const QString m_folder;
    CookieJar m_cookies;
    QString m_userAgent;
};

} // namespace tv

#endif
