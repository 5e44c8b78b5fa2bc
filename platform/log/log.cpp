// Desktop implementation of the television's logger: console (standard error) and file, each with its own threshold.
//
// AVCONTROL_LOG_CONSOLE     off, error, warning or all; default warning
// AVCONTROL_LOG_FILE        path of a file to append to; default no file
// AVCONTROL_LOG_FILE_LEVEL  off, error, warning or all; default all
#include "tos_log.h"

#include <errno.h>
#include <pthread.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#define LOG_EXPORT __attribute__((visibility("default")))

namespace {

// Levels of log_is_output and log_is_outfile. A line is written when its level reaches the threshold.
constexpr int THRESHOLD_ALL = 0;
constexpr int THRESHOLD_WARNING = 3;
constexpr int THRESHOLD_ERROR = 5;
constexpr int THRESHOLD_OFF = 1000;

struct Settings {
    int consoleThreshold = THRESHOLD_WARNING;
    int fileThreshold = THRESHOLD_OFF;
    FILE* file = nullptr;
};

Settings settings;
pthread_once_t settingsOnce = PTHREAD_ONCE_INIT;

int thresholdFromEnvironment(const char* variable, int whenUnset) {
    const char* value = getenv(variable);
    if (!value || !*value) {
        return whenUnset;
    }
    if (!strcmp(value, "off")) {
        return THRESHOLD_OFF;
    }
    if (!strcmp(value, "error")) {
        return THRESHOLD_ERROR;
    }
    if (!strcmp(value, "warning")) {
        return THRESHOLD_WARNING;
    }
    if (!strcmp(value, "all")) {
        return THRESHOLD_ALL;
    }
    fprintf(stderr, "%s=\"%s\" is ignored: use off, error, warning or all.\n", variable, value);
    return whenUnset;
}

void readSettings() {
    settings.consoleThreshold = thresholdFromEnvironment("AVCONTROL_LOG_CONSOLE", THRESHOLD_WARNING);
    const char* path = getenv("AVCONTROL_LOG_FILE");
    if (!path || !*path) {
        return;
    }
    settings.file = fopen(path, "ae");
    if (!settings.file) {
        fprintf(stderr, "AVCONTROL_LOG_FILE=\"%s\" is ignored: the file cannot be opened: %s.\n", path,
                strerror(errno));
        return;
    }
    setvbuf(settings.file, nullptr, _IOLBF, 0);
    settings.fileThreshold = thresholdFromEnvironment("AVCONTROL_LOG_FILE_LEVEL", THRESHOLD_ALL);
}

const Settings& currentSettings() {
    pthread_once(&settingsOnce, readSettings);
    return settings;
}

/// Writes one line with time and marker, without the newlines at the end of the plug-in's formats.
__attribute__((format(printf, 3, 0))) int writeLine(FILE* out, const char* cmd, const char* format, va_list arguments) {
    char line[4096];
    if (vsnprintf(line, sizeof line, format, arguments) < 0) {
        return -1;
    }
    size_t length = strlen(line);
    while (length > 0 && line[length - 1] == '\n') {
        line[--length] = '\0';
    }
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return fprintf(out, "%6lld.%06ld %s %s\n", static_cast<long long>(now.tv_sec), now.tv_nsec / 1000, cmd, line);
}

} // namespace

LOG_EXPORT int log_is_output(int /*module*/, int level) {
    return level >= currentSettings().consoleThreshold;
}

LOG_EXPORT int log_is_outfile(int /*module*/, int level) {
    return level >= currentSettings().fileThreshold;
}

LOG_EXPORT const char* log_get_cmd(int module) {
    return module == EN_MODEL_ID_AVCONTROL ? "avcontrol" : "tv";
}

LOG_EXPORT int tos_log_printfs(const char* /*process*/, const char* cmd, int /*level*/, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int written = writeLine(stderr, cmd, format, arguments);
    va_end(arguments);
    return written;
}

LOG_EXPORT int fpi_log_printf(const char* cmd, int /*level*/, const char* format, ...) {
    FILE* file = currentSettings().file;
    if (!file) {
        return -1;
    }
    va_list arguments;
    va_start(arguments, format);
    const int written = writeLine(file, cmd, format, arguments);
    va_end(arguments);
    return written;
}
