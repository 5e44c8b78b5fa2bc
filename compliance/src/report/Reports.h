/** The results of a run for people and for programs. */
#ifndef COMPLIANCE_REPORTS_H
#define COMPLIANCE_REPORTS_H

#include "kit/Suite.h"

#include <string>

namespace compliance {

/** @return how many results have the verdict */
int countResults(const Results& results, Verdict verdict);

/** Grouped by header, worst first. */
std::string textReport(const Results& results);

std::string junitReport(const Results& results);

/** One line for each check. */
std::string jsonReport(const Results& results);

/** @return promise, reason and method of a check, as --explain prints them */
std::string explanation(const Check& check);

/** @return the checks by header, as --list prints them */
std::string listing(const std::vector<Check>& checks);

} // namespace compliance

#endif
