#include "base/Print.h"

#include <cstdio>

namespace tv {

void printError(const QString& text) {
    std::fprintf(stderr, "tv-browser: %s\n", qUtf8Printable(text));
}

void printMessage(const QString& line) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

void printOutput(const QString& line) {
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

} // namespace tv
