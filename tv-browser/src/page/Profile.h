/**
 * What a television remembers from one start to the next: cookies, the pages' storage, and its user agent.
 */
#ifndef PROFILE_H
#define PROFILE_H

#include "page/CookieJar.h"

#include <QString>

namespace tv {

class Profile {
public:
    /**
     * @param folder    keeps the profile, in the files `cookies`, `port` and `user-agent` and the folder
     *                  `storage`; empty: the
     *                  profile ends with the program, and nothing is written
     * @param userAgent used instead of the profile's own; empty for that
     */
    Profile(const QString& folder, const QString& userAgent);

    /** Forgets the cookies and storage in a profile folder. Its user agent and port stay. */
    static void clearFolder(const QString& folder);

    CookieJar& cookies() { return m_cookies; }

    /** @return folder of the pages' storage; empty when it is in memory only */
    const QString& storageFolder() const { return m_storageFolder; }

    /** @return value of the User-Agent header, of the page and of the players */
    const QString& userAgent() const { return m_userAgent; }

    /**
     * The port on which the local pages were served last: a page's storage belongs to an address, of which it is part.
     * @return 0 when there is none
     */
    int localPort() const;
    void setLocalPort(int port) const;

private:
    const QString m_folder;
    CookieJar m_cookies;
    QString m_storageFolder;
    QString m_userAgent;
};

} // namespace tv

#endif
