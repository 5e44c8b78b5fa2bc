/** Log lines of the framework, under the number that its module names. */
#ifndef FRAMEWORKLOG_H
#define FRAMEWORKLOG_H

#include "HbbTVHelperMacros.h"

/** @return the module number; that of the A/V Control plug-in until a module has named its own */
int frameworkLogModule();

void setFrameworkLogModule(int module);

#define FRAMEWORK_LOG(...) HBBTV_LOG(frameworkLogModule(), __VA_ARGS__)
#define FRAMEWORK_LOG_ERROR(...) HBBTV_LOG_ERROR(frameworkLogModule(), __VA_ARGS__)

#endif
