/** Player reports that `--inject` and the menu bring about. */
#ifndef INJECTEDREPORT_H
#define INJECTEDREPORT_H

#include "base/Result.h"
#include "medialib.h"

#include <QList>
#include <QString>

namespace tv {

struct InjectedReport {
    QString name; ///< as on the command line: "error=3"
    QString text; ///< what it means, for people
    eMEDIA_CALLBACK_EVENT event;
    int code;
    double seconds; ///< when it is due, after the page was loaded; 0 in injectableReports()
};

/** @return every report that can be injected */
const QList<InjectedReport>& injectableReports();

/**
 * Reads a list such as "2.5:error=3,4:parental=blocked".
 * @return the reports; or the first part that is not SECONDS:REPORT
 */
Result<QList<InjectedReport>, QString> parseInjectedReports(const QString& text);

/** Makes the player of the page's newest object send a report. @return false when the page has no such object */
bool inject(const InjectedReport& report);

} // namespace tv

#endif
