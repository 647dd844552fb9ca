// What the kernel tells of a process, file by file.
#pragma once

#include "automation/objects/export.h"
#include <cstdint>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace mox::host {

/// All of a file of `/proc/<id>`; empty if it may not or can no more be read.
MOX_API std::string readProcessFile(std::uint32_t id, std::string_view name);

/// The program that a process runs; empty if the process is gone, has none as the threads of the kernel do, or belongs to
/// somebody else.
std::optional<std::filesystem::path> executableOfProcess(std::uint32_t id);

/// The path without the mark that the kernel puts behind a file that was deleted.
std::string withoutDeletedMark(std::string path);

} // namespace mox::host
