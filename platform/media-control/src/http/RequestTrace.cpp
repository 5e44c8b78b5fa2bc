#include "http/RequestTrace.h"

#include "trace/MediaTrace.h"

#include <cstdlib>
#include <memory>

namespace media {
namespace {

struct StructureFree {
    void operator()(GstStructure* structure) const { gst_structure_free(structure); }
};
using StructurePtr = std::unique_ptr<GstStructure, StructureFree>;

StructurePtr headersOf(const GstStructure* exchange, const char* direction) {
    GstStructure* headers = nullptr;
    gst_structure_get(exchange, direction, GST_TYPE_STRUCTURE, &headers, nullptr);
    return StructurePtr(headers);
}

/** @return null when there is no such header */
const char* headerOf(const StructurePtr& headers, const char* name) {
    return headers ? gst_structure_get_string(headers.get(), name) : nullptr;
}

} // namespace

void traceRequest(int player, GstMessage* message) {
    const GstStructure* exchange = gst_message_get_structure(message);
    if (!isTraced() || !gst_structure_has_name(exchange, "http-headers")) {
        return;
    }
    guint status = 0;
    gst_structure_get_uint(exchange, "http-status-code", &status);
    const char* url = gst_structure_get_string(exchange, "uri");
    const StructurePtr requestHeaders = headersOf(exchange, "request-headers");
    const StructurePtr responseHeaders = headersOf(exchange, "response-headers");
    const char* length = headerOf(responseHeaders, "Content-Length");
    MediaTraceRequest request{};
    request.url = url ? url : "";
    request.redirect = gst_structure_get_string(exchange, "redirection-uri");
    request.range = headerOf(requestHeaders, "Range");
    request.status = static_cast<int>(status);
    request.bytes = length ? std::strtoll(length, nullptr, 10) : -1;
    traceRequest(player, request);
}

} // namespace media
