// Programs that programs of the library start.
#pragma once

#include "automation/objects/export.h"
#include "host/files/files.h"

#include <cstdint>
#include <string_view>

namespace mox::host {

/// Starts the program of a command line and does not wait for it; no shell reads the line. A path is that of a file, a bare name
/// is looked for in the folders of the environment variable PATH; both also without ".exe" at the end, and with it. The program
/// gets a process group of its own, no open files of this process, and nothing for its standard input and output. Its identifier
/// into `task`, and the answer 0; else the number of the run-time error: 53 if there is no such program, 5 if it cannot be
/// started.
MOX_API std::int32_t startProgram(const Files& files, const CodePage& codePage, std::string_view commandLine, double& task);

} // namespace mox::host
