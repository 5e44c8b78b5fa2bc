#include "kit/Options.h"

#include <functional>
#include <map>

namespace compliance {
namespace {

constexpr int MOST_JOBS = 64;
constexpr int HIGHEST_PORT = 65'535;

int number(const std::string& option, const std::string& value, int least, int most) {
    const bool digits =
        !value.empty() && value.size() < 7 && value.find_first_not_of("0123456789") == std::string::npos;
    const int result = digits ? std::stoi(value) : -1;
    if (result < least || result > most) {
        throw WrongUse(option + " " + value + ": give a whole number from " + std::to_string(least) + " to " +
                       std::to_string(most));
    }
    return result;
}

using Setter = std::function<void(Options&, const std::string&)>;

/** Options with a value. */
const std::map<std::string, Setter>& setters() {
    static const std::map<std::string, Setter> table = {
        {"--platform", [](Options& options, const std::string& value) { options.libraries.push_back(value); }},
        {"--media", [](Options& options, const std::string& value) { options.media = value; }},
        {"--profile", [](Options& options, const std::string& value) { options.profileFile = value; }},
        {"--only", [](Options& options, const std::string& value) { options.only.push_back(value); }},
        {"--explain",
         [](Options& options, const std::string& value) {
             options.action = Options::Action::EXPLAIN;
             options.explain = value;
         }},
        {"--address", [](Options& options, const std::string& value) { options.address = value; }},
        {"--junit", [](Options& options, const std::string& value) { options.junitFile = value; }},
        {"--json", [](Options& options, const std::string& value) { options.jsonFile = value; }},
        {"--pages", [](Options& options, const std::string& value) { options.pages = value; }},
        {"--port",
         [](Options& options, const std::string& value) { options.port = number("--port", value, 0, HIGHEST_PORT); }},
        {"--jobs",
         [](Options& options, const std::string& value) { options.jobs = number("--jobs", value, 1, MOST_JOBS); }}};
    return table;
}

bool setFlag(Options& options, const std::string& argument) {
    if (argument == "--help" || argument == "-h") {
        options.action = Options::Action::HELP;
    } else if (argument == "--list") {
        options.action = Options::Action::LIST;
    } else if (argument == "--serve") {
        options.action = Options::Action::SERVE;
    } else if (argument == "--show-output") {
        options.showOutput = true;
    } else {
        return false;
    }
    return true;
}

bool isOption(const std::string& argument) {
    return argument.compare(0, 1, "-") == 0;
}

void checkCombination(const Options& options) {
    const bool runs = options.action == Options::Action::RUN;
    if (runs && options.libraries.empty()) {
        throw WrongUse("name the television's libraries: --platform libplayer.so libtv.so");
    }
    if ((runs || options.action == Options::Action::SERVE) && options.media.empty()) {
        throw WrongUse("say where the media are that make-compliance-media made: --media FOLDER or --media http://...");
    }
    if (options.action == Options::Action::SERVE && options.pages.empty()) {
        throw WrongUse("--serve needs the folder of the kit's pages: --pages FOLDER");
    }
}

} // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    Options options;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const auto setter = setters().find(argument);
        if (setter == setters().end()) {
            if (!setFlag(options, argument)) {
                throw WrongUse("\"" + argument + "\" is no option");
            }
            continue;
        }
        if (i + 1 == arguments.size() || isOption(arguments[i + 1])) {
            throw WrongUse(argument + " needs a value");
        }
        setter->second(options, arguments[++i]);
        while (argument == "--platform" && i + 1 < arguments.size() && !isOption(arguments[i + 1])) {
            setter->second(options, arguments[++i]);
        }
    }
    checkCombination(options);
    return options;
}

const char* usage() {
    return R"(Usage: avcontrol-compliance --platform LIBRARY... --media FOLDER|ADDRESS [OPTION]...

Checks on a television that its player, log, message channel and media
synchronisation keep what their headers promise to the A/V Control plug-in.

  --platform LIBRARY...  the television's libraries, in the order of loading
  --media FOLDER         media that make-compliance-media has made; or the http
                         address of a server with these files
  --profile FILE         what the television offers; all unless given
  --only NAME            only this check; may be given several times
  --jobs N               how many checks run at a time; 1 unless given
  --address ADDRESS      the kit's server listens at this IPv4 address of the
                         host; 127.0.0.1 unless given
  --junit FILE           writes the results as JUnit XML as well
  --json FILE            writes the results as JSON as well
  --show-output          shows what the platform prints meanwhile

  --list                 names all checks
  --explain NAME         what a check proves, why it matters, what it does

  --serve                serves pages for the television's own browser, and
                         waits for their verdicts; with --media, and:
  --pages FOLDER         the kit's pages
  --port N               port of the pages; any unless given

The exit code is 0 when all that the profile offers has passed, 1 when
something has not, 2 when nothing could be checked.
)";
}

} // namespace compliance
