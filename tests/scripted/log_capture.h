/** The scripted logger: every line that reaches one of its two outputs. */
#ifndef LOG_CAPTURE_H
#define LOG_CAPTURE_H

#include <string>
#include <vector>

namespace fake {

struct LogLine {
    bool console;     /**< else the file */
    int level;        /**< as passed with the line */
    std::string text; /**< without its "[function:line]:" head, which is checked on the way */
};

struct Log {
    int consoleFrom = 100; /**< lowest level that the console wants */
    int fileFrom = 0;      /**< lowest level that the file wants */
    std::vector<LogLine> lines;
};

Log& log();

/** @return how many lines of exactly this text reached the file at this level: 2 ordinary, 3 warning, 5 error */
int logged(int level, const std::string& text);

/** @return the texts of the errors that reached the file, without their line ends */
std::vector<std::string> errorLines();

} // namespace fake

#endif
