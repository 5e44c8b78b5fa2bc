// Checks that a television's platform keeps what its headers promise to the A/V Control plug-in.
#include "checks/Checks.h"
#include "kit/Options.h"
#include "kit/Suite.h"
#include "pages/PageRun.h"
#include "pages/Pages.h"
#include "report/Reports.h"
#include "server/MediaFolder.h"

#include <cstdio>
#include <fstream>

namespace {

using namespace compliance;

constexpr int NOT_ALL_PASSED = 1;
constexpr int NOTHING_CHECKED = 2;

void print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void writeFile(const std::string& path, const std::string& text) {
    if (path.empty()) {
        return;
    }
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        throw std::runtime_error("the report " + path + " cannot be written");
    }
}

int finish(const Results& results, const Options& options) {
    print('\n' + textReport(results));
    writeFile(options.junitFile, junitReport(results));
    writeFile(options.jsonFile, jsonReport(results));
    const int broken = countResults(results, Verdict::FAILED) + countResults(results, Verdict::NOT_JUDGED);
    return broken == 0 ? 0 : NOT_ALL_PASSED;
}

int run(const Options& options) {
    const MediaFolder media(options.media);
    Setting setting;
    setting.libraries = options.libraries;
    setting.mediaFolder = media.path();
    setting.address = options.address;
    setting.showOutput = options.showOutput;
    if (!options.profileFile.empty()) {
        setting.profile = Profile::read(options.profileFile);
    }
    Suite suite(allChecks(), setting, [](const Check& check, const Result& result) {
        char line[128];
        std::snprintf(line, sizeof line, "%-12s%-34s%6.1f s\n", verdictName(result.verdict), check.name,
                      result.seconds);
        print(line);
    });
    return finish(suite.run(options.only, options.jobs), options);
}

int serve(const Options& options) {
    const MediaFolder media(options.media);
    return finish(runPages(options, media.path(), print), options);
}

/** @return what runs code, and what the television's browser runs */
std::vector<Check> checksAndPages() {
    std::vector<Check> all = allChecks();
    for (const Page& page : allPages()) {
        all.push_back(page.check);
    }
    return all;
}

int explain(const std::string& name) {
    for (const Check& check : checksAndPages()) {
        if (check.name == name) {
            print(explanation(check));
            return 0;
        }
    }
    throw WrongUse("there is no check \"" + name + "\"; --list names them");
}

int dispatch(const Options& options) {
    switch (options.action) {
    case Options::Action::HELP:
        print(usage());
        return 0;
    case Options::Action::LIST:
        print(listing(checksAndPages()));
        return 0;
    case Options::Action::EXPLAIN:
        return explain(options.explain);
    case Options::Action::SERVE:
        return serve(options);
    default:
        return run(options);
    }
}

} // namespace

int main(int argc, char** argv) {
    try {
        return dispatch(Options::parse({argv + 1, argv + argc}));
    } catch (const WrongUse& problem) {
        std::fprintf(stderr, "avcontrol-compliance: %s. See --help.\n", problem.what());
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "avcontrol-compliance: %s\n", problem.what());
    }
    return NOTHING_CHECKED;
}
