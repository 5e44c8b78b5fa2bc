/** Times that a person enters on the command line. */
#ifndef SECONDS_H
#define SECONDS_H

#include <QString>
#include <optional>

namespace tv {

/** @return a number of seconds from 0 to 1000000; nothing when the text is none */
std::optional<double> parseSeconds(const QString& text);

/** @return for timers */
int toMilliseconds(double seconds);

} // namespace tv

#endif
