// The trash.
#pragma once

#include <filesystem>
#include <string>

namespace mox::host {

/// Keeps what is deleted, until the user empties it: the trash of the desktop, or a folder in its place with the same layout:
/// what was deleted in `files`, where it was and when it was deleted in `info`.
class Trash {
public:
    /// Empty: the desktop's.
    explicit Trash(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// Moves a file, a link or a folder into the trash. False if the trash does not take it, as from another disk; then nothing
    /// has changed.
    bool take(const std::string& path) const;

private:
    bool takeIntoFolder(const std::string& path) const;

    std::filesystem::path folder_;
};

} // namespace mox::host
