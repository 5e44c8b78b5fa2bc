#include "FrameworkLog.h"

static int logModule = EN_MODEL_ID_AVCONTROL;

int frameworkLogModule() {
    return logModule;
}

void setFrameworkLogModule(int module) {
    logModule = module;
}
