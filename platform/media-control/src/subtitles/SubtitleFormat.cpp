#include "subtitles/SubtitleFormat.h"

namespace media {
namespace {

constexpr const char* TTML_NAMESPACE = "http://www.w3.org/ns/ttml";

/** @return the prefix before the root element's ":tt"; empty when it has none */
std::string rootPrefix(const std::string& document) {
    const size_t start = document.rfind("</");
    const size_t colon = document.find(':', start);
    if (start == std::string::npos || colon == std::string::npos || document.compare(colon, 4, ":tt>") != 0) {
        return {};
    }
    return document.substr(start + 2, colon - start - 2);
}

} // namespace

std::string subtitleEncoding(const std::string& bytes) {
    if (bytes.find(TTML_NAMESPACE) != std::string::npos) {
        return "TTML";
    }
    constexpr size_t AFTER_BYTE_ORDER_MARK = 3;
    const size_t signature = bytes.find("WEBVTT");
    if (signature == 0 || signature == AFTER_BYTE_ORDER_MARK) {
        return "WEBVTT";
    }
    return bytes.find(" --> ") != std::string::npos ? "SUBRIP" : "";
}

std::string withoutRootPrefix(std::string document) {
    const std::string prefix = rootPrefix(document);
    const size_t declaration = document.find(TTML_NAMESPACE); // in the root's start tag
    const size_t start = prefix.empty() ? std::string::npos : document.rfind('<' + prefix + ":tt", declaration);
    if (start != std::string::npos) {
        document.erase(document.rfind("</") + 2, prefix.size() + 1); // the end tag first: `start` stays right
        document.erase(start + 1, prefix.size() + 1);
    }
    return document;
}

} // namespace media
