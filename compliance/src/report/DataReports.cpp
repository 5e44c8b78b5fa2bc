#include "report/Reports.h"

#include <cstdio>
#include <set>

namespace compliance {
namespace {

std::string forXml(const std::string& text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
    }
    return result;
}

std::string forJson(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            result += '\\';
        }
        result += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return result + '"';
}

std::string seconds(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", value);
    return text;
}

std::string testcase(const Check& check, const Result& result) {
    std::string text = "    <testcase classname=\"" + forXml(check.header) + "\" name=\"" + forXml(check.name) +
                       "\" time=\"" + seconds(result.seconds) + "\"";
    const std::string promise = forXml(check.promise);
    switch (result.verdict) {
    case Verdict::PASSED:
        return text + "/>\n";
    case Verdict::NOT_OFFERED:
        return text + "><skipped message=\"not offered: " + forXml(result.note) + "\"/></testcase>\n";
    case Verdict::NOT_JUDGED:
        return text + "><error message=\"not judged: " + forXml(result.finding.came) + "\"/></testcase>\n";
    default:
        return text + "><failure message=\"" + promise + "\">came: " + forXml(result.finding.came) +
               "\nexpected: " + forXml(result.finding.expected) + "\na page: " + forXml(check.why) +
               "</failure></testcase>\n";
    }
}

} // namespace

std::string junitReport(const Results& results) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites name=\"avcontrol-compliance\">\n";
    std::set<std::string> written;
    for (const auto& [first, unused] : results) {
        if (!written.insert(first->header).second) {
            continue;
        }
        Results rows;
        for (const auto& row : results) {
            if (row.first->header == std::string(first->header)) {
                rows.push_back(row);
            }
        }
        text += "  <testsuite name=\"" + forXml(first->header) + "\" tests=\"" + std::to_string(rows.size()) +
                "\" failures=\"" + std::to_string(countResults(rows, Verdict::FAILED)) + "\" errors=\"" +
                std::to_string(countResults(rows, Verdict::NOT_JUDGED)) + "\" skipped=\"" +
                std::to_string(countResults(rows, Verdict::NOT_OFFERED)) + "\">\n";
        for (const auto& [check, result] : rows) {
            text += testcase(*check, result);
        }
        text += "  </testsuite>\n";
    }
    return text + "</testsuites>\n";
}

std::string jsonReport(const Results& results) {
    std::string text = "[\n";
    for (size_t i = 0; i < results.size(); ++i) {
        const auto& [check, result] = results[i];
        text += std::string("{\"name\": ") + forJson(check->name) + ", \"header\": " + forJson(check->header) +
                ", \"verdict\": " + forJson(verdictName(result.verdict)) + ", \"seconds\": " + seconds(result.seconds) +
                ", \"promise\": " + forJson(check->promise) + ", \"came\": " + forJson(result.finding.came) +
                ", \"expected\": " + forJson(result.finding.expected) + ", \"note\": " + forJson(result.note) + '}' +
                (i + 1 < results.size() ? ",\n" : "\n");
    }
    return text + "]\n";
}

} // namespace compliance
