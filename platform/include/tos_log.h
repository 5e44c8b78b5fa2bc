/**
 * The television's logger.
 *
 * For every line, the plug-in queries whether the console and the file are enabled for its level, and writes the line
 * to each that is. The functions may be called on any thread, also concurrently, and must not wait for the plug-in
 * thread.
 */
#ifndef TOS_LOG_H
#define TOS_LOG_H

#ifdef __cplusplus
extern "C" {
#endif

/** Severity of a line. */
typedef enum TOSLOG_LOGLEVEL {
    TOSLOG_LOGLVL_VERBOSE = 1,
    TOSLOG_LOGLVL_DEBUG = 2,
    TOSLOG_LOGLVL_INFO = 3,
    TOSLOG_LOGLVL_WARN = 4,
    TOSLOG_LOGLVL_ERROR = 5,
    TOSLOG_LOGLVL_FATAL = 6
} TOSLOG_LOGLEVEL;

/** Modules of the television that write log lines. */
typedef enum EN_MODEL_ID_T {
    EN_MODEL_ID_AVCONTROL = 19 /**< the A/V Control plug-in and its framework */
} EN_MODEL_ID_T;

#if defined(__GNUC__)
#define TOS_LOG_FORMAT(format_index, first_argument) __attribute__((format(printf, format_index, first_argument)))
#else
#define TOS_LOG_FORMAT(format_index, first_argument)
#endif

/**
 * @param module an EN_MODEL_ID_T value
 * @param level  the line's level: 2 ordinary, 3 warning, 5 error
 * @return non-zero when the console is enabled for the line. Called for every line, so answer from memory.
 */
int log_is_output(int module, int level);

/** Like log_is_output, for the log file. */
int log_is_outfile(int module, int level);

/** @return the marker at the head of the module's lines; static text, never null */
const char* log_get_cmd(int module);

/**
 * Writes a line to the console.
 * @param process name of the process that the line belongs to
 * @param cmd     the module's marker, from log_get_cmd
 * @param level   a TOSLOG_LOGLEVEL: 3 for ordinary lines, 4 for warnings, 5 for errors
 * @param format  printf format, beginning with "[%s:%d]:" for function and source line
 */
int tos_log_printfs(const char* process, const char* cmd, int level, const char* format, ...) TOS_LOG_FORMAT(4, 5);

/** Writes a line to the log file. @param level 2, 3 or 5, as for log_is_outfile. Others as for tos_log_printfs. */
int fpi_log_printf(const char* cmd, int level, const char* format, ...) TOS_LOG_FORMAT(3, 4);

#ifdef __cplusplus
}
#endif

#endif
