/** The command line. */
#ifndef COMPLIANCE_OPTIONS_H
#define COMPLIANCE_OPTIONS_H

#include <stdexcept>
#include <string>
#include <vector>

namespace compliance {

/** The command line cannot be understood. what() says why and what to write. */
class WrongUse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Options {
    enum class Action { RUN, HELP, LIST, EXPLAIN, SERVE } action = Action::RUN;
    std::vector<std::string> libraries;
    std::string media;       // folder, or http address
    std::string profileFile; // empty for a television that offers all
    std::vector<std::string> only;
    std::string explain;
    std::string address = "127.0.0.1";
    std::string junitFile;
    std::string jsonFile;
    std::string pages; // folder of the pages that --serve serves
    int port = 0;
    int jobs = 1;
    bool showOutput = false;

    /** @throws WrongUse */
    static Options parse(const std::vector<std::string>& arguments);
};

const char* usage();

} // namespace compliance

#endif
