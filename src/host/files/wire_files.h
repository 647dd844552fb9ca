#pragma once

namespace mox::host {

class Machine;

/// The bodies of the operations on files: searches, attributes, drives, and the file statements of the language.
void wireFiles(Machine& machine);
/// Those on open files and on whole ones: opening, copying, moving, times.
void wireOpenFiles(Machine& machine);
/// Those on what is in files: versions, checksums.
void wireFileContents(Machine& machine);

} // namespace mox::host
