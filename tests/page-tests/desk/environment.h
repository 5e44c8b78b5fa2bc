/** What ctest tells a test program of the desk. */
#ifndef DESK_ENVIRONMENT_H
#define DESK_ENVIRONMENT_H

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

/** @return the variable's value, which the test's registration sets */
inline std::string environment(const char* name) {
    const char* value = std::getenv(name);
    EXPECT_NE(nullptr, value) << name << " is not set; run the test with ctest";
    return value ? value : "";
}

#endif
