/** The plug-in's log lines. Formats are given without the "[%s:%d]:" head that every line has. */
#ifndef AVCONTROL_LOG_H
#define AVCONTROL_LOG_H

#include "HbbTVHelperMacros.h"

/** The plug-in's module number with the platform's logger. */
static constexpr EN_MODEL_ID_T g_model_id = EN_MODEL_ID_AVCONTROL;

#define LOG(...) HBBTV_LOG(g_model_id, __VA_ARGS__)
#define LOG_WARN(...) HBBTV_LOG_WARN(g_model_id, __VA_ARGS__)
#define LOG_ERROR(...) HBBTV_LOG_ERROR(g_model_id, __VA_ARGS__)

/** An ordinary line without arguments whose format comes from a table, with its "[%s:%d]:" head. */
#define LOG_FORMAT(format) hbbtvLogPlainLine(g_model_id, 2, TOSLOG_LOGLVL_INFO, format, __func__, __LINE__)

/** @return true when an ordinary line would be written: for lines whose text costs something to make */
inline bool ordinaryLogIsOn() {
    return log_is_output(g_model_id, 2) || log_is_outfile(g_model_id, 2);
}

#endif
