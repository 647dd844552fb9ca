#pragma once

namespace mox::host {

class Machine;

/// The bodies of the operations on files: searches, attributes, drives, the file statements of the language, and what the shell
/// knows of files.
void wireFiles(Machine& machine);

} // namespace mox::host
