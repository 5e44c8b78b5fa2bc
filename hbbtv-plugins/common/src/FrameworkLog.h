/** Log lines of the framework, under the plug-in's module number. */
#ifndef FRAMEWORKLOG_H
#define FRAMEWORKLOG_H

#include "HbbTVHelperMacros.h"

#define FRAMEWORK_LOG(...) HBBTV_LOG(EN_MODEL_ID_AVCONTROL, __VA_ARGS__)
#define FRAMEWORK_LOG_ERROR(...) HBBTV_LOG_ERROR(EN_MODEL_ID_AVCONTROL, __VA_ARGS__)

#endif
