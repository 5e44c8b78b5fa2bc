#include "gst/PlaybackError.h"

#include "gst/GstPointer.h"

#include <cstring>

namespace media {
namespace {

using Code = PlaybackErrorCode;

Code codeOfHttpStatus(guint status) {
    if (status == 416) {
        return Code::POSITION_NOT_AVAILABLE;
    }
    return status >= 400 && status < 500 ? Code::CONTENT_NOT_AVAILABLE : Code::UNDEFINED;
}

Code codeOfResourceError(int error) {
    switch (error) {
    case GST_RESOURCE_ERROR_NOT_FOUND:
    case GST_RESOURCE_ERROR_NOT_AUTHORIZED:
        return Code::CONTENT_NOT_AVAILABLE;
    case GST_RESOURCE_ERROR_OPEN_READ:
    case GST_RESOURCE_ERROR_READ:
        return Code::BAD_CONNECTION;
    case GST_RESOURCE_ERROR_SEEK:
        return Code::POSITION_NOT_AVAILABLE;
    case GST_RESOURCE_ERROR_FAILED: // these come from audio devices and from the buffer's file
    case GST_RESOURCE_ERROR_BUSY:
    case GST_RESOURCE_ERROR_OPEN_WRITE:
    case GST_RESOURCE_ERROR_OPEN_READ_WRITE:
    case GST_RESOURCE_ERROR_WRITE:
    case GST_RESOURCE_ERROR_NO_SPACE_LEFT:
        return Code::INSUFFICIENT_RESOURCES;
    default:
        return Code::UNDEFINED;
    }
}

Code codeOfStreamError(int error, const GstStructure* details) {
    switch (error) {
    case GST_STREAM_ERROR_FAILED: {
        // The source says with it that its data had nowhere to go, or that the connection brought none.
        int flow = GST_FLOW_OK;
        if (details) {
            gst_structure_get_int(details, "flow-return", &flow);
        }
        if (flow == GST_FLOW_NOT_LINKED) {
            return Code::FORMAT_NOT_SUPPORTED;
        }
        return flow == GST_FLOW_ERROR ? Code::BAD_CONNECTION : Code::CONTENT_CORRUPT;
    }
    case GST_STREAM_ERROR_NOT_IMPLEMENTED:
    case GST_STREAM_ERROR_CODEC_NOT_FOUND:
    case GST_STREAM_ERROR_DECRYPT:
    case GST_STREAM_ERROR_DECRYPT_NOKEY:
        return Code::FORMAT_NOT_SUPPORTED;
    default:
        return Code::CONTENT_CORRUPT;
    }
}

Code codeOf(const GError* error, const GstStructure* details) {
    if (error->domain == GST_RESOURCE_ERROR) {
        return codeOfResourceError(error->code);
    }
    if (error->domain == GST_STREAM_ERROR) {
        return codeOfStreamError(error->code, details);
    }
    if (error->domain == GST_CORE_ERROR && error->code == GST_CORE_ERROR_MISSING_PLUGIN) {
        return Code::FORMAT_NOT_SUPPORTED;
    }
    return Code::UNDEFINED;
}

} // namespace

PlaybackError describeError(GstMessage* message, bool isSeeking) {
    GError* parsed = nullptr;
    gchar* debug = nullptr;
    gst_message_parse_error(message, &parsed, &debug);
    const ErrorPtr error(parsed);
    const TextPtr debugText(debug);
    if (error->domain == GST_STREAM_ERROR && debugText &&
        std::strstr(debugText.get(), "Could not fetch media playlist")) {
        return {Code::CONTENT_NOT_AVAILABLE, "a playlist that the media names cannot be had"};
    }
    const GstStructure* details = nullptr;
    gst_message_parse_error_details(message, &details);
    guint status = 0;
    if (details && gst_structure_get_uint(details, "http-status-code", &status) && status >= 400) {
        return {codeOfHttpStatus(status), "HTTP " + std::to_string(status)};
    }
    if (status >= 300) {
        return {Code::BAD_CONNECTION,
                "the server sends the request round in a circle (HTTP " + std::to_string(status) + ")"};
    }
    if (!isSeeking && g_error_matches(error.get(), GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_SEEK)) {
        return {Code::BAD_CONNECTION,
                "the connection broke off, and the server does not go on in the middle of a file"};
    }
    const Code code = codeOf(error.get(), details);
    if (code == Code::BAD_CONNECTION && error->domain == GST_STREAM_ERROR) {
        return {code, "no connection to the server, or it broke off", true};
    }
    return {code, error->message};
}

} // namespace media
