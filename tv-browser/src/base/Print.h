/** What the program prints: every text on standard error and standard output goes through these functions. */
#ifndef PRINT_H
#define PRINT_H

#include <QString>

namespace tv {

/**
 * Prints "tv-browser: TEXT" as a line on standard error. Thread: any.
 * @param text what is wrong, with which value, and what to do; it begins in lower case and ends without a full stop
 */
void printError(const QString& text);

/** Prints a line on standard error that does not come from the program itself, such as a page's console message. */
void printMessage(const QString& line);

/** Prints a line on standard output, at once. */
void printOutput(const QString& line);

} // namespace tv

#endif
