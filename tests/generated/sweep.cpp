// Fails each allocation of the libraries in turn, and has each function of the platform give odd answers in turn. The
// process must go on, nothing may be lost, and without memory an operation is done wholly or leaves all as it was.
#include "allocations.h"
#include "generated_tests.h"
#include "journal.h"
#include "log_capture.h"
#include "points.h"
#include "scene.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

using fake::Point;

namespace {

enum Failure { Once, FromThenOn, OddAnswer, None };

struct Case {
    const Step* state;
    const Step* operation; ///< null: none
    Failure failure;
    int nth; ///< allocation, or call of the platform that can be odd, from 1
    int odd;
    std::string point;
};

std::string nameOf(const Case& test) {
    static const char* const failures[] = {"fails once", "fails from then on", "answers oddly"};
    return test.state->name + " / " + test.operation->name + " / " + std::to_string(test.nth) + " " + test.point + " " +
           failures[test.failure] + (test.odd ? " " + std::to_string(test.odd) : "");
}

/// What a page and a player see of an operation.
struct Outcome {
    std::string effects; ///< at once
    std::string later;
    bool hasErrorLine;
};

Outcome perform(const Case& test, const std::function<void(Point&)>& atPoint = nullptr) {
    Scene scene;
    test.state->run(scene);
    scene.element().get("playState"); // the module hands over now what the page has set before
    scene.deliver();
    fake::happened();
    fake::log().lines.clear();
    Point::hook = atPoint;
    if (test.failure == Once || test.failure == FromThenOn) {
        fake::failAllocation(test.nth, test.failure == FromThenOn);
    }
    if (test.operation) {
        test.operation->run(scene);
    }
    scene.deliver();
    Point::hook = nullptr;
    fake::failAllocation(0);
    Outcome outcome = {fake::happened(), {}, !fake::errorLines().empty()};
    if (!fake::atAllocation) {
        outcome.later = scene.future();
    }
    return outcome;
}

/// @return the first line in which two texts differ
std::string difference(const std::string& expected, const std::string& found) {
    size_t at = 0;
    while (at < expected.size() && at < found.size() && expected[at] == found[at]) {
        ++at;
    }
    const auto lineAround = [at](const std::string& text) {
        const size_t start = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
        return text.substr(start, text.find('\n', at) - start);
    };
    return "expected: " + lineAround(expected) + "\n   found: " + lineAround(found);
}

void runWithoutMemory(const Case& test) {
    const Outcome outcome = perform(test);
    if (test.operation->makesInstance) {
        return;
    }
    const Outcome done = perform({test.state, test.operation, None, 0, 0, {}});
    const Outcome refused = perform({test.state, nullptr, None, 0, 0, {}});
    if (outcome.effects == done.effects && outcome.later == done.later) {
        return;
    }
    if (outcome.effects.empty() && outcome.later == refused.later) {
        EXPECT_TRUE(outcome.hasErrorLine) << "refused without an error line: " << test.operation->name;
        return;
    }
    const bool happened = !outcome.effects.empty() || done.effects.empty();
    ADD_FAILURE() << "half done: " << test.operation->name.substr(0, test.operation->name.find_first_of(" (")) << "\n"
                  << (happened && outcome.effects != done.effects
                          ? "expected: " + done.effects + "\n   found: " + outcome.effects
                          : difference(happened ? done.later : refused.later, outcome.later));
}

void runWithOddAnswer(const Case& test) {
    int calls = 0;
    perform(test, [&](Point& point) {
        if (point.oddities() > 0 && ++calls == test.nth) {
            point.beOdd(test.odd);
        }
    });
}

std::vector<Case>* made = nullptr;
std::set<std::string> seen;
const Step* currentState;
const Step* currentOperation;

void addFailures(int number) {
    if (seen.insert(placeInSources("allocation")).second) {
        for (const Failure failure : {Once, FromThenOn}) {
            made->push_back({currentState, currentOperation, failure, number, 0, "allocation"});
        }
    }
}

/// @return each allocation and each call of the platform that is reached from a state, in the first operation that does
std::vector<Case> allCases() {
    std::vector<Case> cases;
    made = &cases;
    for (const Step& state : states()) {
        seen.clear();
        currentState = &state;
        for (const Step& operation : operations()) {
            currentOperation = &operation;
            int calls = 0;
            fake::atAllocation = addFailures;
            perform({&state, &operation, Once, 0, 0, {}}, [&](const Point& point) {
                calls += point.oddities() > 0;
                if (point.oddities() > 0 && seen.insert(placeInSources(point.name())).second) {
                    for (int odd = 1; odd <= point.oddities(); ++odd) {
                        cases.push_back({&state, &operation, OddAnswer, calls, odd, point.name()});
                    }
                }
            });
            fake::atAllocation = nullptr;
        }
    }
    return cases;
}

} // namespace

int main(int argc, char* argv[]) {
    return runGeneratedTests(argc, argv, "A case: state / operation / number of what fails, and how.", [] {
        const auto cases = std::make_shared<std::vector<Case>>(allCases());
        return Cases{cases->size(), [=](size_t i) { return nameOf((*cases)[i]); },
                     [=](size_t i) {
                         const Case& test = (*cases)[i];
                         test.failure == OddAnswer ? runWithOddAnswer(test) : runWithoutMemory(test);
                     }};
    });
}
