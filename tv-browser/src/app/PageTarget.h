/** What a person names to be opened: an address, a file, or a folder with an index.html. */
#ifndef PAGETARGET_H
#define PAGETARGET_H

#include "base/Result.h"

#include <QUrl>

namespace tv {

/** @return whether a television opens addresses of that kind: http and https */
bool isPageAddress(const QUrl& url);

/** @return why the target cannot be opened, a sentence for the user without a full stop; success when it can be tried
 */
Result<void, QString> checkPageTarget(const QString& target);

} // namespace tv

#endif
