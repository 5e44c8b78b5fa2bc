#include "generated_tests.h"

#include "isolated.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unwind.h>

namespace {

void print(const std::vector<Finding>& findings, const std::function<std::string(size_t)>& nameOf) {
    std::map<std::string, std::vector<const Finding*>> byCause;
    for (const Finding& finding : findings) {
        byCause[finding.cause].push_back(&finding);
    }
    std::vector<std::vector<const Finding*>> groups;
    groups.reserve(byCause.size());
    for (const auto& [cause, group] : byCause) {
        groups.push_back(group);
    }
    std::stable_sort(groups.begin(), groups.end(), [](auto& a, auto& b) { return a.size() > b.size(); });
    for (const std::vector<const Finding*>& group : groups) {
        printf("\n%zu x %s\n", group.size(), group.front()->cause.c_str());
        for (size_t i = 0; i < std::min<size_t>(group.size(), 3); ++i) {
            printf("  %s\n", nameOf(group[i]->number).c_str());
        }
        for (const std::string& line : group.front()->stack) {
            printf("    %s\n", line.c_str());
        }
    }
}

int repeat(const Cases& cases, const std::string& name) {
    for (size_t i = 0; i < cases.count; ++i) {
        if (cases.nameOf(i) == name) {
            cases.run(i);
            return testing::Test::HasFailure() ? 1 : 0;
        }
    }
    fprintf(stderr, "There is no case \"%s\"; --list names them\n", name.c_str());
    return 2;
}

} // namespace

std::string placeInSources(const std::string& name) {
    std::string place = name;
    _Unwind_Backtrace(
        [](_Unwind_Context* context, void* text) {
            *static_cast<std::string*>(text) += " " + std::to_string(_Unwind_GetIP(context));
            return _URC_NO_REASON;
        },
        &place);
    return place;
}

int runGeneratedTests(int argc, char* argv[], const char* about, const std::function<Cases()>& make) {
    std::map<std::string, std::string> options;
    for (int i = 1; i < argc; ++i) {
        const bool takesValue = strcmp(argv[i], "--list") != 0 && strcmp(argv[i], "--help") != 0;
        options[argv[i]] = takesValue && i + 1 < argc ? argv[i + 1] : "";
        i += takesValue;
    }
    if (options.count("--help")) {
        printf("Usage: %s [--random COUNT [--seed NUMBER]] [--jobs COUNT] [--list | --case TEXT]\n\n%s\n", argv[0],
               about);
        return 0;
    }
    testing::InitGoogleTest();
    const Cases cases = make();
    if (options.count("--case")) {
        return repeat(cases, options["--case"]);
    }
    std::vector<size_t> chosen(cases.count);
    std::iota(chosen.begin(), chosen.end(), 0);
    if (options.count("--random")) {
        const unsigned seed = options.count("--seed")
                                  ? static_cast<unsigned>(strtoul(options["--seed"].c_str(), nullptr, 10))
                                  : std::random_device{}();
        printf("seed %u\n", seed);
        std::shuffle(chosen.begin(), chosen.end(), std::mt19937(seed));
        chosen.resize(std::min<size_t>(cases.count, strtoul(options["--random"].c_str(), nullptr, 10)));
    }
    const auto nameOf = [&](size_t i) { return cases.nameOf(chosen[i]); };
    if (options.count("--list")) {
        for (size_t i = 0; i < chosen.size(); ++i) {
            printf("%s\n", nameOf(i).c_str());
        }
        return 0;
    }
    const unsigned jobs = options.count("--jobs") ? static_cast<unsigned>(atoi(options["--jobs"].c_str())) : 2;
    const std::vector<Finding> findings =
        runIsolated(chosen.size(), std::max(jobs, 1u), [&](size_t i) { cases.run(chosen[i]); });
    print(findings, nameOf);
    printf("\n%zu of %zu cases run, %zu failed\n", chosen.size(), cases.count, findings.size());
    return findings.empty() ? 0 : 1;
}
