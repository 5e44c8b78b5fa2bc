#include "npapi/page/WindowScript.h"

#include <stdio.h>
#include <string.h>

namespace {

constexpr size_t LONGEST_SOURCE = 511;

/// @return a value that borrows the text
NPVariant textVariant(const char* text) {
    NPVariant value;
    STRINGN_TO_NPVARIANT(text, static_cast<uint32_t>(strlen(text)), value);
    return value;
}

} // namespace

ScriptObject makeWindowFunction(const InstanceRef& instance, const char* parameters, const char* body) {
    const ScriptObject window = instance.window();
    const ScriptObject constructor = instance.property(window, "Function").takeObject();
    const NPVariant texts[2] = {textVariant(parameters), textVariant(body)};
    ScriptObject function = instance.callFunction(constructor, texts, 2).takeObject();
    if (function) {
        return function;
    }
    // NPN_Evaluate makes QtWebKit keep the instance for a turn, in which its frame must not go: only for pages whose
    // content security policy forbids the constructor.
    char source[LONGEST_SOURCE + 1];
    snprintf(source, sizeof source, "(function(%s) {%s})", parameters, body);
    return instance.evaluate(window, source).takeObject();
}
