#include "npapi/engine/BrowserFunctions.h"

#include <algorithm>
#include <string.h>

namespace {

NPNetscapeFuncs functions;

bool complete(const NPNetscapeFuncs& table) {
    return table.memalloc && table.memfree && table.getvalue && table.setvalue && table.getstringidentifier &&
           table.getintidentifier && table.identifierisstring && table.utf8fromidentifier && table.intfromidentifier &&
           table.createobject && table.retainobject && table.releaseobject && table.invoke && table.invokeDefault &&
           table.getproperty && table.setproperty && table.releasevariantvalue && table.pluginthreadasynccall;
}

} // namespace

NPError setBrowserFunctions(const NPNetscapeFuncs* browser) {
    if (!browser) {
        return NPERR_INVALID_FUNCTABLE_ERROR;
    }
    if (browser->version >> 8 > NP_VERSION_MAJOR) {
        return NPERR_INCOMPATIBLE_VERSION_ERROR;
    }
    NPNetscapeFuncs table;
    memset(&table, 0, sizeof table);
    memcpy(&table, browser, std::min<size_t>(browser->size, sizeof table));
    if (!complete(table)) {
        return NPERR_INVALID_FUNCTABLE_ERROR;
    }
    functions = table;
    return NPERR_NO_ERROR;
}

const NPNetscapeFuncs& browserFunctions() {
    return functions;
}
