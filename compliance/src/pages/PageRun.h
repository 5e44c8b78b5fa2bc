/** Pages for the television's own browser: served with the media, each reports its verdict over HTTP. */
#ifndef COMPLIANCE_PAGERUN_H
#define COMPLIANCE_PAGERUN_H

#include "kit/Options.h"
#include "kit/Suite.h"

#include <functional>
#include <string>

namespace compliance {

/**
 * Serves the pages until each has reported, or none has for too long.
 * @param print receives what a person should read meanwhile
 * @throws std::runtime_error when there are no pages, or no port
 */
Results runPages(const Options& options, const std::string& mediaFolder,
                 const std::function<void(const std::string&)>& print);

} // namespace compliance

#endif
