/** The common form of the log lines of the plug-ins and their framework. */
#ifndef HBBTVHELPERMACROS_H
#define HBBTVHELPERMACROS_H

#include "HbbTVExport.h"

#include "tos_log.h"

/** @return the module's marker when the console is enabled for this level, else null */
HBBTV_EXPORT const char* hbbtvConsoleMark(int module, int level);

/** Like hbbtvConsoleMark, for the log file. */
HBBTV_EXPORT const char* hbbtvFileMark(int module, int level);

/** Writes a line without arguments to each enabled output. @param format takes `function` and `line` */
HBBTV_EXPORT void hbbtvLogPlainLine(int module, int level, int console_level, const char* format, const char* function,
                                    int line);

/**
 * Writes one line to the console logger and to the file logger, each only if it is enabled for this level.
 * @param module        EN_MODEL_ID_T of the writer
 * @param level         2 ordinary, 3 warning, 5 error: the level for both queries and for the file's line
 * @param console_level TOSLOG_LOGLEVEL of the console's line
 * @param ...           format, a string literal without its "[%s:%d]:" head, and at most 7 arguments, which are
 *                      evaluated once for each enabled output
 */
#define HBBTV_LOG_LINE(module, level, console_level, ...)                                                              \
    HBBTV_LOG_NINTH(__VA_ARGS__, HBBTV_LOG_N, HBBTV_LOG_N, HBBTV_LOG_N, HBBTV_LOG_N, HBBTV_LOG_N, HBBTV_LOG_N,         \
                    HBBTV_LOG_N, HBBTV_LOG_1, 0)                                                                       \
    (module, level, console_level, __VA_ARGS__)

/** Ordinary lines, warnings and errors of a module. */
#define HBBTV_LOG(module, ...) HBBTV_LOG_LINE(module, 2, TOSLOG_LOGLVL_INFO, __VA_ARGS__)
#define HBBTV_LOG_WARN(module, ...) HBBTV_LOG_LINE(module, 3, TOSLOG_LOGLVL_WARN, __VA_ARGS__)
#define HBBTV_LOG_ERROR(module, ...) HBBTV_LOG_LINE(module, 5, TOSLOG_LOGLVL_ERROR, __VA_ARGS__)

// Selects by the number of arguments. Most lines have none: a function keeps each of these small. The others expand to
// calls of the loggers, whose formats the compiler checks.
#define HBBTV_LOG_NINTH(_1, _2, _3, _4, _5, _6, _7, _8, ninth, ...) ninth
#define HBBTV_LOG_1(module, level, console_level, format)                                                              \
    hbbtvLogPlainLine(module, level, console_level, "[%s:%d]:" format, __func__, __LINE__)
#define HBBTV_LOG_N(module, level, console_level, format, ...)                                                         \
    do {                                                                                                               \
        if (const char* console_mark = hbbtvConsoleMark(module, level)) {                                              \
            tos_log_printfs("vexa", console_mark, console_level, "[%s:%d]:" format, __func__, __LINE__, __VA_ARGS__);  \
        }                                                                                                              \
        if (const char* file_mark = hbbtvFileMark(module, level)) {                                                    \
            fpi_log_printf(file_mark, level, "[%s:%d]:" format, __func__, __LINE__, __VA_ARGS__);                      \
        }                                                                                                              \
    } while (0)

#endif
