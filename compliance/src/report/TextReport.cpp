#include "report/Reports.h"

#include <algorithm>

namespace compliance {
namespace {

constexpr size_t NAME_WIDTH = 32;
constexpr size_t LINE_WIDTH = 100;
const std::string INDENT(6, ' ');

/** The worst stand first. */
int rank(Verdict verdict) {
    switch (verdict) {
    case Verdict::FAILED:
        return 0;
    case Verdict::NOT_JUDGED:
        return 1;
    case Verdict::PASSED:
        return 2;
    default:
        return 3;
    }
}

/** Breaks a text into lines, each after the first indented as far as the first begins. */
std::string wrapped(const std::string& label, const std::string& text) {
    const std::string indent(INDENT.size() + 12, ' ');
    std::string result = INDENT + label + std::string(12 - label.size(), ' ');
    size_t column = result.size();
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find(' ', at), text.size());
        if (column + end - at > LINE_WIDTH && column > indent.size()) {
            result += '\n' + indent;
            column = indent.size();
        }
        result += text.substr(at, end - at) + ' ';
        column += end - at + 1;
        at = end + 1;
    }
    return result.substr(0, result.find_last_not_of(' ') + 1) + '\n';
}

std::string padded(const std::string& text, size_t width) {
    return text + std::string(text.size() < width ? width - text.size() : 1, ' ');
}

std::string describe(const Check& check, const Result& result) {
    const std::string name = std::string("  ") + padded(verdictName(result.verdict), 12) + check.name;
    if (result.verdict == Verdict::FAILED) {
        return name + '\n' + wrapped("promise", check.promise) + wrapped("came", result.finding.came) +
               wrapped("expected", result.finding.expected) + wrapped("a page", check.why) + '\n';
    }
    const std::string remark = result.verdict == Verdict::NOT_JUDGED ? result.finding.came : result.note;
    return (remark.empty() ? name : padded(name, NAME_WIDTH + 14) + remark) + '\n';
}

/** @return the headers of the results, those with the worst results first */
std::vector<std::string> headers(const Results& results) {
    std::vector<std::string> names;
    for (const auto& [check, result] : results) {
        if (std::find(names.begin(), names.end(), check->header) == names.end()) {
            names.emplace_back(check->header);
        }
    }
    const auto worst = [&](const std::string& header) {
        int least = rank(Verdict::NOT_OFFERED);
        for (const auto& [check, result] : results) {
            least = check->header == header ? std::min(least, rank(result.verdict)) : least;
        }
        return least;
    };
    std::stable_sort(names.begin(), names.end(),
                     [&](const std::string& a, const std::string& b) { return worst(a) < worst(b); });
    return names;
}

Results ofHeader(const Results& results, const std::string& header) {
    Results found;
    std::copy_if(results.begin(), results.end(), std::back_inserter(found),
                 [&](const auto& row) { return row.first->header == header; });
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return rank(a.second.verdict) < rank(b.second.verdict); });
    return found;
}

std::string counts(const Results& results) {
    std::string text;
    for (const Verdict verdict : {Verdict::FAILED, Verdict::NOT_JUDGED, Verdict::PASSED, Verdict::NOT_OFFERED}) {
        if (const int count = countResults(results, verdict)) {
            text += (text.empty() ? "" : ", ") + std::to_string(count) + ' ' + verdictName(verdict);
        }
    }
    return text;
}

} // namespace

int countResults(const Results& results, Verdict verdict) {
    return static_cast<int>(
        std::count_if(results.begin(), results.end(), [&](const auto& row) { return row.second.verdict == verdict; }));
}

std::string textReport(const Results& results) {
    std::string text;
    for (const std::string& header : headers(results)) {
        const Results rows = ofHeader(results, header);
        text += header + ": " + counts(rows) + '\n';
        for (const auto& [check, result] : rows) {
            text += describe(*check, result);
        }
        text += '\n';
    }
    return text + std::to_string(results.size()) + " checks: " + counts(results) + '\n';
}

std::string explanation(const Check& check) {
    return std::string(check.name) + '\n' + wrapped("header", check.header) + wrapped("promise", check.promise) +
           wrapped("a page", check.why) + wrapped("the check", check.how) +
           (*check.feature ? wrapped("profile", std::string("not offered without ") + check.feature) : "");
}

std::string listing(const std::vector<Check>& checks) {
    std::string text;
    std::string header;
    for (const Check& check : checks) {
        if (header != check.header) {
            header = check.header;
            text += header + '\n';
        }
        text += "  " + padded(check.name, NAME_WIDTH) + check.promise + '\n';
    }
    return text;
}

} // namespace compliance
