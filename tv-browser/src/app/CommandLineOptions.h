/** The options of the command line: one table that parses them and prints their help. */
#ifndef COMMANDLINEOPTIONS_H
#define COMMANDLINEOPTIONS_H

#include "app/CommandLine.h"

#include <QString>
#include <array>
#include <variant>

namespace tv {

/** Reads an option's value. @return why it cannot be read: a clause that follows "--name value: " */
using OptionReader = Result<void, QString> (*)(const QString& value, CommandLine& line);

struct CommandLineOption {
    const char* group; ///< title of the group that begins with this option; null for an option of the same group
    const char* name;
    const char* value; ///< what the help calls its value; null for an option without one
    const char* help;
    std::variant<bool CommandLine::*, QString CommandLine::*, OptionReader> target; ///< a bool is set to true
    QString (*choices)() = nullptr; ///< the text that the value `help` prints; null when `help` is a value like others
    bool isRepeatable = false;      ///< every value is read; of other options only the last one
};

inline constexpr size_t commandLineOptionCount = 21;

/** @return all options, in the order of the help */
const std::array<CommandLineOption, commandLineOptionCount>& commandLineOptions();

/** @return the text of --help */
QString commandLineHelp();

} // namespace tv

#endif
