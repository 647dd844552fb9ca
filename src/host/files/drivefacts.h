// What kind of drive a folder stands for, and how much space it has.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace mox::host {

/// Space in bytes.
struct DriveSpace {
    /// To the present user.
    std::uint64_t available = 0;
    std::uint64_t total = 0;
    std::uint64_t free = 0;
    /// The unit in which the disk gives space out.
    std::uint64_t block = 0;
};

/// The space of the disk that a folder lies on; nothing if it is no folder.
std::optional<DriveSpace> spaceOf(const std::filesystem::path& folder);

/// The kind of drive that a folder stands for by the disk that it lies on, as a `DRIVE_` constant: a network, an optical disk, a
/// disk in memory, a removable disk, else a fixed one. `DRIVE_NO_ROOT_DIR` if the folder does not exist.
std::uint32_t driveTypeOf(const std::filesystem::path& folder);

} // namespace mox::host
