// Runs operations of an object in all its states, and at each call of the platform that can run script, in turn,
// everything that a page can do there. Whatever the page does, the process must go on and nothing may be lost.
#include "isolated.h"
#include "points.h"
#include "scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unwind.h>

using fake::Point;
using fake::Reach;

namespace {

struct Case {
    const Step* state;
    const Step* operation;
    std::string point;
    int nth; ///< of the operation's calls, from 1
    const Action* action;
};

std::string nameOf(const Case& test) {
    return test.state->name + " / " + test.operation->name + " / " + std::to_string(test.nth) + " " + test.point +
           " / " + test.action->name;
}

/// @return what tells one place in the sources from another
std::string placeOf(const Point& point) {
    std::string place = point.name();
    _Unwind_Backtrace(
        [](_Unwind_Context* context, void* text) {
            *static_cast<std::string*>(text) += " " + std::to_string(_Unwind_GetIP(context));
            return _URC_NO_REASON;
        },
        &place);
    return place;
}

void perform(const Step& state, const Step& operation, const std::function<void(Scene&, const Point&)>& atPoint) {
    Scene scene;
    state.run(scene);
    Point::hook = [&](const Point& point) {
        if (point.reach() != Reach::Nothing) {
            atPoint(scene, point);
        }
    };
    operation.run(scene);
    scene.deliver();
    Point::hook = nullptr;
}

void run(const Case& test) {
    int calls = 0;
    perform(*test.state, *test.operation, [&](Scene& scene, const Point&) {
        if (++calls == test.nth) {
            test.action->run(scene);
        }
    });
}

/// @return every action at every place of the sources that is reached from a state, by the first operation that does
std::vector<Case> allCases() {
    std::vector<Case> cases;
    for (const Step& state : states()) {
        std::set<std::string> seen;
        for (const Step& operation : operations()) {
            int calls = 0;
            perform(state, operation, [&](Scene&, const Point& point) {
                ++calls;
                if (!seen.insert(placeOf(point)).second) {
                    return;
                }
                for (const Action& action : actions()) {
                    if (!action.endsFrame || point.reach() == Reach::Frame) {
                        cases.push_back({&state, &operation, point.name(), calls, &action});
                    }
                }
            });
        }
    }
    return cases;
}

int usage(const char* program) {
    printf("Usage: %s [--random COUNT] [--seed NUMBER] [--jobs COUNT] [--list | --case TEXT]\n\n"
           "Runs all cases, or some that are drawn from a seed, or the one of the text that --list prints for it.\n"
           "A case: state / operation / number and name of the platform's call / what the page does at it.\n",
           program);
    return 0;
}

} // namespace

int main(int argc, char* argv[]) {
    std::map<std::string, std::string> options;
    for (int i = 1; i < argc; ++i) {
        const bool takesValue = strcmp(argv[i], "--list") && strcmp(argv[i], "--help");
        options[argv[i]] = takesValue && i + 1 < argc ? argv[i + 1] : "";
        i += takesValue;
    }
    if (options.count("--help")) {
        return usage(argv[0]);
    }
    testing::InitGoogleTest();
    std::vector<Case> cases = allCases();
    const size_t total = cases.size();
    if (options.count("--list")) {
        for (const Case& test : cases) {
            printf("%s\n", nameOf(test).c_str());
        }
        return 0;
    }
    if (options.count("--case")) {
        const auto found = std::find_if(cases.begin(), cases.end(),
                                        [&](const Case& test) { return nameOf(test) == options["--case"]; });
        if (found == cases.end()) {
            fprintf(stderr, "There is no case \"%s\"; --list names them\n", options["--case"].c_str());
            return 2;
        }
        run(*found);
        return testing::Test::HasFailure();
    }
    if (options.count("--random")) {
        const unsigned long seed =
            options.count("--seed") ? strtoul(options["--seed"].c_str(), nullptr, 10) : std::random_device{}();
        printf("seed %lu\n", seed);
        std::shuffle(cases.begin(), cases.end(), std::mt19937(static_cast<unsigned>(seed)));
        cases.resize(std::min<size_t>(cases.size(), strtoul(options["--random"].c_str(), nullptr, 10)));
    }
    const unsigned jobs = options.count("--jobs") ? static_cast<unsigned>(atoi(options["--jobs"].c_str())) : 2;
    const std::vector<Finding> findings = runIsolated(cases.size(), jobs, [&](size_t i) { run(cases[i]); });
    printFindings(findings, [&](size_t i) { return nameOf(cases[i]); });
    printf("\n%zu of %zu cases run (%zu states, %zu operations, %zu actions), %zu failed\n", cases.size(), total,
           states().size(), operations().size(), actions().size(), findings.size());
    return findings.empty() ? 0 : 1;
}
