#include "HbbTVHelperMacros.h"

const char* hbbtvConsoleMark(int module, int level) {
    return log_is_output(module, level) ? log_get_cmd(module) : nullptr;
}

const char* hbbtvFileMark(int module, int level) {
    return log_is_outfile(module, level) ? log_get_cmd(module) : nullptr;
}

void hbbtvLogPlainLine(int module, int level, int console_level, const char* format, const char* function, int line) {
    if (const char* mark = hbbtvConsoleMark(module, level)) {
        tos_log_printfs("vexa", mark, console_level, format, function, line);
    }
    if (const char* mark = hbbtvFileMark(module, level)) {
        fpi_log_printf(mark, level, format, function, line);
    }
}
