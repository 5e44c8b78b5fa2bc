/**
 * Player reports for --inject and the menu: their names, and when they are due.
 */
#ifndef INJECTEDREPORT_H
#define INJECTEDREPORT_H

#include "medialib.h"

#include <QList>
#include <QString>
#include <optional>

namespace tv {

struct InjectedReport {
    QString name; ///< as on the command line: "error=3"
    QString text; ///< what it says, for people
    eMEDIA_CALLBACK_EVENT event;
    int code;
    double seconds; ///< after the page was loaded; 0 in the list below
};

/** @return every report that can be injected */
const QList<InjectedReport>& injectableReports();

/**
 * Reads a list such as "2.5:error=3,4:parental=blocked".
 * @param wrong receives the first part that is not SECONDS:REPORT
 */
std::optional<QList<InjectedReport>> parseInjectedReports(const QString& text, QString& wrong);

/** Makes the player of the page's newest object report that. @return false when there is none */
bool inject(const InjectedReport& report);

} // namespace tv

#endif
