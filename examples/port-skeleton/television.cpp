// tos_log.h, hbbtvMsg.h and media_sync_global.h: a log on standard error, a channel to nobody, an adapter that listens.
#include "Trace.h"
#include "hbbtvMsg.h"
#include "media_sync_global.h"
#include "tos_log.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

using skeleton::trace;

namespace {

// Levels of log_is_output: 2 ordinary, 3 warning, 5 error.
constexpr int WARNING = 3;

__attribute__((format(printf, 2, 0))) int write(const char* cmd, const char* format, va_list arguments) {
    char line[2048];
    std::vsnprintf(line, sizeof line, format, arguments);
    return std::fprintf(stderr, "%s %s\n", cmd, line);
}

} // namespace

/** Asked for every line: the answer is in memory. */
PLATFORM int log_is_output(int /*module*/, int level) {
    static const bool wantsAll = std::getenv("SKELETON_TRACE") != nullptr;
    return wantsAll || level >= WARNING;
}

PLATFORM int log_is_outfile(int /*module*/, int /*level*/) {
    return 0;
}

PLATFORM const char* log_get_cmd(int module) {
    return module == EN_MODEL_ID_AVCONTROL ? "avcontrol" : "tv";
}

PLATFORM int tos_log_printfs(const char* /*process*/, const char* cmd, int /*level*/, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int written = write(cmd, format, arguments);
    va_end(arguments);
    return written;
}

/** No file is wanted, as log_is_outfile says. */
PLATFORM int fpi_log_printf(const char* /*cmd*/, int /*level*/, const char* /*format*/, ...) {
    return 0;
}

PLATFORM int openCommunicationChannel(void* /*options*/) {
    trace("openCommunicationChannel");
    return 0;
}

PLATFORM int adapt_play_state_change(int player, int mediaType, int state) {
    trace("adapt_play_state_change(%d, %d, %d)", player, mediaType, state);
    return 0;
}

PLATFORM int adapt_play_speed_change(int player, float speed) {
    trace("adapt_play_speed_change(%d, %g)", player, static_cast<double>(speed));
    return 0;
}

PLATFORM int adapt_parental_rating_change(int player, int blocked) {
    trace("adapt_parental_rating_change(%d, %d)", player, blocked);
    return 0;
}
