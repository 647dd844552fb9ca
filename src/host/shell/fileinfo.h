// SHGetFileInfoA.
#pragma once

#include "automation/objects/export.h"
#include "host/files/files.h"
#include "host/icons/shellicons.h"

#include "platform/shell32.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace mox::host {

/// Where the shell's facts come from.
struct ShellSources {
    const Files& files;
    const CodePage& codePage;
    ShellIcons& icons;
    /// The folder of the trash.
    std::filesystem::path trash;
};

/// Fills the fields that the flags name. 1, or with `SHGFI_SYSICONINDEX` the handle of the system's image list, which belongs to
/// the machine; 0 if there is no such file, then nothing is changed. A new icon belongs to the caller.
///
/// The name of a drive's root is its label, or its kind where it has none, and the letter: `Local Disk (C:)`. The type of a file
/// is what the shared MIME database calls it in the language of the user, by its name alone; `XYZ File` if that is not known
/// there.
std::uint32_t fileInfo(const ShellSources& sources, std::string_view file, platform::SHFILEINFOA& info, std::uint32_t flags);

/// The label of the volume whose root a folder is, empty if there is none. `labels`: the folder that has a link named after each
/// label to its device.
MOX_API std::string volumeLabel(const std::filesystem::path& folder, const std::filesystem::path& labels = "/dev/disk/by-label");

} // namespace mox::host
