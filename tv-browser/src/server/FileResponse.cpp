#include "server/FileResponse.h"

#include "server/MimeType.h"

#include <algorithm>
#include <fstream>
#include <memory>

namespace tv {

namespace fs = std::filesystem;

namespace {

/**
 * Fits the request's ranges to the file, which the library leaves to its caller.
 * @return false when a range lies outside the file
 */
bool fitRanges(httplib::Ranges& ranges, ssize_t size) {
    if (ranges.size() > 1) {
        ranges.clear(); // A server may send the whole file.
    }
    for (httplib::Range& range : ranges) {
        if (range.first >= size || (range.first < 0 && (range.second == 0 || size == 0))) {
            return false;
        }
        if (range.first >= 0) {
            range.second = std::min(range.second, size - 1);
        }
    }
    return true;
}

FaultyContent::Read readerOf(const std::shared_ptr<std::ifstream>& stream) {
    return [stream](uint64_t offset, char* to, size_t size) {
        stream->clear();
        stream->seekg(static_cast<std::streamoff>(offset));
        stream->read(to, static_cast<std::streamsize>(size));
        return static_cast<size_t>(stream->gcount());
    };
}

} // namespace

void respondWithFile(const httplib::Request& request, httplib::Response& response, const fs::path& file,
                     const ServerFault& fault, StopSignal& stop) {
    const auto stream = std::make_shared<std::ifstream>(file, std::ios::binary);
    std::error_code error;
    const auto size = static_cast<ssize_t>(fs::file_size(file, error));
    if (error || !stream->is_open()) {
        response.status = 403;
        return;
    }
    // The library passes its own request as const, and reads the ranges again after the handler.
    auto& ranges = const_cast<httplib::Request&>(request).ranges;
    if (fault.ignoreRanges) {
        ranges.clear();
        response.set_header("Accept-Ranges", "none");
    }
    if (!fitRanges(ranges, size)) {
        ranges.clear();
        response.status = 416;
        response.set_header("Content-Range", "bytes */" + std::to_string(size));
        return;
    }
    response.set_header("Cache-Control", "no-cache");
    const std::string type = fault.type.empty() ? mimeType(file) : fault.type;
    if (size == 0) {
        response.set_content(std::string(), type);
        return;
    }
    const auto content = std::make_shared<FaultyContent>(readerOf(stream), fault, stop);
    response.set_content_provider(static_cast<size_t>(size), type,
                                  [content](size_t offset, size_t length, httplib::DataSink& sink) {
                                      return content->send(offset, length, sink);
                                  });
}

} // namespace tv
