#include "npapi/instance/PluginTrace.h"

#include "HbbTVExport.h"

#include <math.h>
#include <stdio.h>
#include <time.h>

namespace {

constexpr size_t LONGEST_TEXT = 500;

HbbTVPluginTraceCallback observer = nullptr;
void* observerData = nullptr;

std::string describeNumber(double number) {
    char text[32];
    snprintf(text, sizeof text, floor(number) == number && fabs(number) < 1e15 ? "%.0f" : "%.6g", number);
    return text;
}

std::string oneLine(const std::string& text) {
    std::string line = text.size() > LONGEST_TEXT ? text.substr(0, LONGEST_TEXT) + "..." : text;
    for (char& character : line) {
        if (static_cast<unsigned char>(character) < ' ') {
            character = ' ';
        }
    }
    return line;
}

} // namespace

HBBTV_EXPORT void hbbtvPluginTraceSetCallback(HbbTVPluginTraceCallback callback, void* userData) {
    observer = callback;
    observerData = userData;
}

bool pluginTraceIsOn() {
    return observer != nullptr;
}

int64_t pluginTraceNow() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<int64_t>(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
}

void pluginTraceEntry(HbbTVPluginTraceKind kind, int instance, int64_t startUs, int64_t tookUs, const std::string& text,
                      const std::string& value) {
    if (!observer) {
        return;
    }
    const std::string textLine = oneLine(text);
    const std::string valueLine = oneLine(value);
    const HbbTVPluginTraceEntry entry = {kind, instance, startUs, tookUs, textLine.c_str(), valueLine.c_str()};
    observer(&entry, observerData);
}

std::string describeVariant(const NPVariant& value) {
    switch (value.type) {
    case NPVariantType_Void:
        return "undefined";
    case NPVariantType_Null:
        return "null";
    case NPVariantType_Bool:
        return NPVARIANT_TO_BOOLEAN(value) ? "true" : "false";
    case NPVariantType_Int32:
        return describeNumber(NPVARIANT_TO_INT32(value));
    case NPVariantType_Double:
        return describeNumber(NPVARIANT_TO_DOUBLE(value));
    case NPVariantType_String:
        return '"' + std::string(NPVARIANT_TO_STRING(value).UTF8Characters, NPVARIANT_TO_STRING(value).UTF8Length) +
               '"';
    case NPVariantType_Object:
        return "object";
    }
    return "?";
}

std::string describeArguments(const NPVariant* args, uint32_t count) {
    std::string text = "(";
    for (uint32_t i = 0; i < count; ++i) {
        text += (i ? ", " : "") + describeVariant(args[i]);
    }
    return text + ")";
}

std::string describeIdentifier(NPIdentifier identifier) {
    if (!NPN_IdentifierIsString(identifier)) {
        return std::to_string(NPN_IntFromIdentifier(identifier));
    }
    NPUTF8* name = NPN_UTF8FromIdentifier(identifier);
    const std::string text = name ? name : "?";
    NPN_MemFree(name);
    return text;
}
