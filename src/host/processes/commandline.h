// Command lines as programs of the library write them.
#pragma once

#include "automation/objects/export.h"

#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// The parts of a command line behind the program. Blanks and tabs separate; inside quotes they do not. Backslashes stand for
/// themselves but in front of a quote, where two count as one and an odd last one makes the quote a character; two quotes inside
/// quotes are one.
MOX_API std::vector<std::string> splitArguments(std::string_view text);

/// One way to read a command line.
struct CommandLine {
    std::string program;
    std::string_view arguments;
};

/// The ways to read a command line, the one that counts first in front. In quotes the program is what stands in them; without,
/// each blank may end its name, as in "C:\My Programs\a.exe /x".
MOX_API std::vector<CommandLine> readingsOf(std::string_view commandLine);

} // namespace mox::host
