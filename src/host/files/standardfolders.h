// The folders that every system has.
#pragma once

#include <filesystem>

namespace mox::host {

/// Makes the folders of the system, of all users and of the present user below the folder of the system's drive, as far as they
/// are missing. What cannot be made is left out: programs then find the folder missing, as on a damaged system.
void makeStandardFolders(const std::filesystem::path& drive);

} // namespace mox::host
