// The module as an engine loads it.
#include "page.h"

#include <gtest/gtest.h>

namespace fake {

PluginBaseClass* pluginBehind(NPP) {
    return nullptr;
}

const NPPluginFuncs& pluginFunctions() {
    static NPPluginFuncs table = [] {
        NPPluginFuncs functions = {};
        functions.size = sizeof functions;
        EXPECT_EQ(NPERR_NO_ERROR, NP_Initialize(&engineFunctions, &functions));
        return functions;
    }();
    return table;
}

} // namespace fake
