#include "PageFunctions.h"

void PageFunctions::remember(const std::string& name, const NPObject* function) {
    if (function) {
        m_functions[name] = function;
    } else {
        m_functions.erase(name);
    }
}

const char* PageFunctions::nameOf(const NPObject* function) const {
    for (const auto& entry : m_functions) {
        if (entry.second == function) {
            return entry.first.c_str();
        }
    }
    return "function";
}
