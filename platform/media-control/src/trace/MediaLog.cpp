#include "trace/MediaLog.h"

#include "tos_log.h"

namespace media {

void logError(const char* function, int line, const std::string& text) {
    if (log_is_output(EN_MODEL_ID_AVCONTROL, TOSLOG_LOGLVL_ERROR)) {
        tos_log_printfs("media-control", log_get_cmd(EN_MODEL_ID_AVCONTROL), TOSLOG_LOGLVL_ERROR, "[%s:%d]:%s\n",
                        function, line, text.c_str());
    }
    if (log_is_outfile(EN_MODEL_ID_AVCONTROL, TOSLOG_LOGLVL_ERROR)) {
        fpi_log_printf(log_get_cmd(EN_MODEL_ID_AVCONTROL), TOSLOG_LOGLVL_ERROR, "[%s:%d]:%s\n", function, line,
                       text.c_str());
    }
}

} // namespace media
