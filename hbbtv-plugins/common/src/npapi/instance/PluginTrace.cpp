#include "npapi/instance/PluginTrace.h"

#include "HbbTVExport.h"

#include <algorithm>
#include <new>
#include <stdio.h>
#include <string.h>
#include <time.h>

namespace {

HbbTVPluginTraceCallback observer = nullptr;
void* observerData = nullptr;

HbbTVPluginTraceValue valueOf(HbbTVPluginTraceType type) {
    HbbTVPluginTraceValue value = {};
    value.type = type;
    return value;
}

HbbTVPluginTraceValue numberOf(double number) {
    HbbTVPluginTraceValue value = valueOf(HBBTV_VALUE_NUMBER);
    value.number = number;
    return value;
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
    static int64_t last = 0;
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    last = std::max(last + 1, static_cast<int64_t>(now.tv_sec) * 1000000 + now.tv_nsec / 1000);
    return last;
}

void pluginTraceEntry(const HbbTVPluginTraceEntry& entry) {
    if (observer) {
        observer(&entry, observerData);
    }
}

HbbTVPluginTraceEntry pluginTraceEntryNow(HbbTVPluginTraceKind kind, int instance) {
    HbbTVPluginTraceEntry entry = {};
    entry.kind = kind;
    entry.instance = instance;
    entry.timeUs = pluginTraceNow();
    return entry;
}

void pluginTraceProperty(HbbTVPluginTraceKind kind, int instance, const char* name,
                         const HbbTVPluginTraceValue& value) {
    HbbTVPluginTraceEntry entry = pluginTraceEntryNow(kind, instance);
    entry.property = {name, value};
    pluginTraceEntry(entry);
}

HbbTVPluginTraceValue pluginTraceString(const char* bytes, size_t length) {
    HbbTVPluginTraceValue value = valueOf(HBBTV_VALUE_STRING);
    value.string = {bytes, static_cast<uint32_t>(length)};
    return value;
}

HbbTVPluginTraceValue pluginTraceValue(const NPVariant& variant) {
    switch (variant.type) {
    case NPVariantType_Null:
        return valueOf(HBBTV_VALUE_NULL);
    case NPVariantType_Bool: {
        HbbTVPluginTraceValue value = valueOf(HBBTV_VALUE_BOOLEAN);
        value.boolean = NPVARIANT_TO_BOOLEAN(variant);
        return value;
    }
    case NPVariantType_Int32:
        return numberOf(NPVARIANT_TO_INT32(variant));
    case NPVariantType_Double:
        return numberOf(NPVARIANT_TO_DOUBLE(variant));
    case NPVariantType_String:
        return NPVARIANT_TO_STRING(variant).UTF8Characters
                   ? pluginTraceString(NPVARIANT_TO_STRING(variant).UTF8Characters,
                                       NPVARIANT_TO_STRING(variant).UTF8Length)
                   : pluginTraceString("", 0);
    case NPVariantType_Object:
        return valueOf(HBBTV_VALUE_OBJECT);
    case NPVariantType_Void:
        break;
    }
    return valueOf(HBBTV_VALUE_UNDEFINED);
}

PluginTraceValues::PluginTraceValues(const NPVariant* args, uint32_t count)
    : m_values(new (std::nothrow) HbbTVPluginTraceValue[count]), m_count(m_values ? count : 0) {
    std::transform(args, args + m_count, m_values.get(), pluginTraceValue);
}

TraceName::TraceName(NPIdentifier identifier) : text() {
    if (!NPN_IdentifierIsString(identifier)) {
        snprintf(text, sizeof text, "%d", NPN_IntFromIdentifier(identifier));
        return;
    }
    NPUTF8* const name = NPN_UTF8FromIdentifier(identifier);
    *this = TraceName(name ? name : "?");
    if (name) {
        NPN_MemFree(name);
    }
}

TraceName::TraceName(const NPString& string) : text() {
    if (string.UTF8Characters) {
        strncpy(text, string.UTF8Characters, std::min<size_t>(string.UTF8Length, sizeof text - 1));
    }
}

TraceName::TraceName(const char* string) : text() {
    strncpy(text, string, sizeof text - 1);
}
