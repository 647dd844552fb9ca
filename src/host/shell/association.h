// Which program opens a file.
#pragma once

#include <filesystem>
#include <optional>

namespace mox::host {

/// The program that opens a file on this desktop: for a program that itself, else the default application of the content type,
/// which the shared MIME database tells by the file's name, and by its contents where the name says too little. Nothing if the
/// type is unknown, has no application, or the application's program is not installed. Needs neither a display nor a session bus.
std::optional<std::filesystem::path> programThatOpens(const std::filesystem::path& file);

} // namespace mox::host
