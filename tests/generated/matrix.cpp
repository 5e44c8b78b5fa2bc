// Runs operations of an object in all its states, and at each call of the platform that can run script, in turn,
// everything that a page can do there. Whatever the page does, the process must go on and nothing may be lost.
#include "generated_tests.h"
#include "points.h"
#include "scene.h"

#include <memory>
#include <set>

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

void perform(const Step& state, const Step& operation, const std::function<void(Scene&, Point&)>& atPoint) {
    Scene scene;
    state.run(scene);
    Point::hook = [&](Point& point) {
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
                if (!seen.insert(placeInSources(point.name())).second) {
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

} // namespace

int main(int argc, char* argv[]) {
    return runGeneratedTests(
        argc, argv, "A case: state / operation / number and name of the platform's call / what the page does.", [] {
            const auto cases = std::make_shared<std::vector<Case>>(allCases());
            return Cases{cases->size(), [=](size_t i) { return nameOf((*cases)[i]); },
                         [=](size_t i) { run((*cases)[i]); }};
        });
}
