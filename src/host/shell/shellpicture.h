// By what picture the shell shows a file.
#pragma once

#include "automation/objects/export.h"
#include "host/icons/shellicons.h"

#include <cstdint>
#include <string>

namespace mox::host {

/// Of a drive by its `DRIVE_` kind.
MOX_API ShellPicture pictureOfDrive(std::uint32_t kind);
MOX_API ShellPicture pictureOfFolder(bool isOpen);
MOX_API ShellPicture pictureOfTrash();
/// Of a file by its name, as types are told by names.
MOX_API ShellPicture pictureOfFile(const std::string& name);

} // namespace mox::host
