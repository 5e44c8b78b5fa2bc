/** The program of a generated test: runs many cases, in processes of their own, so that each may end its process. */
#ifndef GENERATED_TESTS_H
#define GENERATED_TESTS_H

#include <functional>
#include <string>
#include <vector>

struct Cases {
    size_t count;
    std::function<std::string(size_t)> nameOf; /**< names a case in one line, by which it can be repeated */
    std::function<void(size_t)> run;           /**< fails by an expectation of GoogleTest, or as it likes */
};

/** @return what distinguishes the place at which it is called from others: `name`, and the stack of the process */
std::string placeInSources(const std::string& name);

/** Understands the options that --help names. @param about what a case is. @return the program's exit code */
int runGeneratedTests(int argc, char* argv[], const char* about, const std::function<Cases()>& make);

#endif
