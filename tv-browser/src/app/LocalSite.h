/** The local files that the television opens. */
#ifndef LOCALSITE_H
#define LOCALSITE_H

#include "base/Result.h"
#include "server/LoopbackServer.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QUrl>

namespace tv {

class Profile;

/** Serves a page's folder and the mounted ones over HTTP, and names their files in messages. */
class LocalSite {
public:
    /**
     * Finds the address to open, and starts the server when something local is to be served. Call once.
     * @param target  address, file, or folder with an index.html
     * @param mounts  further folders: name, folder
     * @param profile remembers the server's port
     * @return the address; or a sentence for the user, without a full stop
     */
    Result<QUrl, QString> open(const QString& target, const QList<QPair<QString, QString>>& mounts,
                               const Profile& profile);

    LoopbackServer& server() { return m_server; }

    /** @return "host:port" of the server; empty when it does not run */
    QString authority() const { return m_authority; }

    /** @return the file behind an address of the server, which an author can open in an editor; else the address */
    QString nameOf(const QUrl& url) const;

private:
    Result<void, QString> mount(const QString& target, bool isAddress, const QList<QPair<QString, QString>>& mounts);
    Result<void, QString> start(const Profile& profile);

    LoopbackServer m_server;
    QString m_authority;
};

} // namespace tv

#endif
