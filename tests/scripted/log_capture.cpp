#include "log_capture.h"

#include "points.h"
#include "tos_log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>

#include <stdarg.h>
#include <stdio.h>
#include <string.h>

namespace fake {
namespace {

const char* const mark = "avcontrol";

void add(bool console, const char* cmd, int level, const char* format, va_list arguments) {
    const Point point("log");
    static std::mutex mutex;
    char text[8192];
    vsnprintf(text, sizeof text, format, arguments);
    const std::lock_guard<std::mutex> lock(mutex);
    EXPECT_STREQ(mark, cmd);
    EXPECT_EQ(format, strstr(format, "[%s:%d]:")) << format;
    log().lines.push_back({console, level, strstr(text, "]:") + 2});
}

} // namespace

Log& log() {
    static Log instance;
    return instance;
}

int logged(int level, const std::string& text) {
    return static_cast<int>(std::count_if(log().lines.begin(), log().lines.end(), [&](const LogLine& line) {
        return !line.console && line.level == level && line.text == text;
    }));
}

std::vector<std::string> errorLines() {
    std::vector<std::string> found;
    for (const LogLine& line : log().lines) {
        if (!line.console && line.level == 5) {
            found.push_back(line.text.substr(0, line.text.find_last_not_of('\n') + 1));
        }
    }
    return found;
}

} // namespace fake

extern "C" {

int log_is_output(int module, int level) {
    return module == EN_MODEL_ID_AVCONTROL && level >= fake::log().consoleFrom;
}

int log_is_outfile(int module, int level) {
    return module == EN_MODEL_ID_AVCONTROL && level >= fake::log().fileFrom;
}

const char* log_get_cmd(int module) {
    return module == 19 ? fake::mark : "";
}

int tos_log_printfs(const char* process, const char* cmd, int level, const char* format, ...) {
    EXPECT_STREQ("vexa", process);
    va_list arguments;
    va_start(arguments, format);
    fake::add(true, cmd, level, format, arguments);
    va_end(arguments);
    return 0;
}

int fpi_log_printf(const char* cmd, int level, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    fake::add(false, cmd, level, format, arguments);
    va_end(arguments);
    return 0;
}
}
