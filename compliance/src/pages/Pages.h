/** The pages that the television's own browser runs. */
#ifndef COMPLIANCE_PAGES_H
#define COMPLIANCE_PAGES_H

#include "kit/Check.h"

#include <string>
#include <vector>

namespace compliance {

/** A page says its verdict in its title: "PASS", or "FAIL" and why. */
struct Page {
    std::string file; // below the folder "object" of the kit's pages
    Check check;      // its promise and reason; it runs no code
};

const std::vector<Page>& allPages();

} // namespace compliance

#endif
