// The framework's services to the plug-in, written anew by a television maker. The contracts are in the headers of
// avcontrol-plugin-dev: PluginBaseClass.h, HbbTVBaseClass.h, HbbTVHelperMacros.h, HbbTVPluginHelpers.h.
#include "HbbTVBaseClass.h"
#include "HbbTVHelperMacros.h"
#include "HbbTVPluginHelpers.h"
#include "PluginBaseClass.h"

#include <algorithm>
#include <cstring>

PluginBaseClass::PluginBaseClass() : m_pNPInstance(nullptr) {}
PluginBaseClass::~PluginBaseClass() = default;

NPP* PluginBaseClass::getNPP() {
    return &m_pNPInstance;
}

HbbTVBaseClass::HbbTVBaseClass() = default;
HbbTVBaseClass::~HbbTVBaseClass() = default;

int HbbTVBaseClass::findIdentifier(const NPIdentifier* identifiers, int count, NPIdentifier name) {
    const NPIdentifier* end = identifiers + count;
    const NPIdentifier* found = std::find(identifiers, end, name);
    return found == end ? -1 : static_cast<int>(found - identifiers);
}

bool HbbTVBaseClass::copyVariant(const NPVariant& value, NPVariant* copy) {
    if (NPVARIANT_IS_STRING(value)) {
        const NPString& text = NPVARIANT_TO_STRING(value);
        auto* characters = static_cast<char*>(NPN_MemAlloc(text.UTF8Length));
        if (!characters && text.UTF8Length > 0) {
            return false;
        }
        std::copy_n(text.UTF8Characters, text.UTF8Length, characters);
        STRINGN_TO_NPVARIANT(characters, text.UTF8Length, *copy);
        return true;
    }
    *copy = value;
    if (NPVARIANT_IS_OBJECT(value)) {
        NPN_RetainObject(NPVARIANT_TO_OBJECT(value));
    }
    return true;
}

bool HbbTVBaseClass::makeString(const char* text, NPVariant* result) {
    NPVariant borrowed;
    STRINGN_TO_NPVARIANT(text, static_cast<uint32_t>(std::strlen(text)), borrowed);
    return copyVariant(borrowed, result);
}

void HbbTVBaseClass::detachRecord(NPObjectHbbTV* record) {
    if (record) {
        record->objectInstancePtr = nullptr;
        NPN_ReleaseObject(reinterpret_cast<NPObject*>(record));
    }
}

bool HbbTVBaseClass::isFrameworkObject(const NPObject* /*object*/) {
    return false; // This framework makes no script objects of its own.
}

bool GetPageUrl(NPP* /*instance*/, char* url, size_t size) {
    if (url && size > 0) {
        url[0] = '\0';
    }
    return false; // A real framework asks the window of the page for location.href.
}

void PrintVariant(NPVariant /*value*/) {}

const char* hbbtvConsoleMark(int module, int level) {
    return log_is_output(module, level) ? log_get_cmd(module) : nullptr;
}

const char* hbbtvFileMark(int module, int level) {
    return log_is_outfile(module, level) ? log_get_cmd(module) : nullptr;
}

void hbbtvLogPlainLine(int module, int level, int console_level, const char* format, const char* function, int line) {
    if (const char* mark = hbbtvConsoleMark(module, level)) {
        tos_log_printfs("vexa", mark, console_level, format, function, line);
    }
    if (const char* mark = hbbtvFileMark(module, level)) {
        fpi_log_printf(mark, level, format, function, line);
    }
}
