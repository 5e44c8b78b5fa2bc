/** Runs many cases in processes of their own, so that one that ends its process does not end the others. */
#ifndef ISOLATED_H
#define ISOLATED_H

#include <functional>
#include <string>
#include <vector>

/** A case that did not return, leaked, or broke a rule of the scripted platform. */
struct Finding {
    size_t number;
    std::string cause;              /**< kind of failure and the innermost functions of the libraries */
    std::vector<std::string> stack; /**< what was wrong, and the innermost frames that are the project's */
};

/** Runs the cases 0 to `count` - 1 in child processes, several in each as long as all is well. */
std::vector<Finding> runIsolated(size_t count, unsigned processes, const std::function<void(size_t)>& run);

#endif
