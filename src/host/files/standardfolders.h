// The folders that every system has.
#pragma once

#include "automation/objects/export.h"

#include <filesystem>
#include <string>

namespace mox::host {

/// The name of the present user, as that of a folder.
MOX_API std::string nameOfUser();

/// Makes the folders of the system, of all users and of the present user below the folder of the system's drive, as far as they
/// are missing. What cannot be made is left out: programs then find the folder missing, as on a damaged system.
void makeStandardFolders(const std::filesystem::path& drive);

} // namespace mox::host
