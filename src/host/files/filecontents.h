// Copying what is in a file.
#pragma once

namespace mox::host {

/// Copies all contents of one open file into another one that is empty, with the quickest way that the disks have: sharing of
/// blocks, copying inside the system, reading and writing. Holes stay holes. False, with the reason in `errno`, if it fails.
bool copyContents(int from, int to);

} // namespace mox::host
