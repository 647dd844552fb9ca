// Keeping a damaged file.
#pragma once

#include <filesystem>
#include <string>

namespace mox::host {

/// Gives a database file and its log a new name beside the old one, `<stem>.damaged-<time>.sqlite`, that no file has. Gives that
/// name. Throws `StorageError`; the file then lies where it was.
std::filesystem::path keepDamagedFile(const std::filesystem::path& file);

} // namespace mox::host
