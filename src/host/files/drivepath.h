// Paths as programs write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// A path that is taken apart: a drive and the names that lead from its root to the file. It is absolute, "." and ".." are gone,
/// and ".." at the root stays there, so that no path leads out of a drive.
struct DrivePath {
    /// In upper case.
    char drive = 'C';
    /// In UTF-8; wildcards are still in.
    std::vector<std::string> names;
    /// True if a separator follows the last name, which then has to be a folder.
    bool endsWithSeparator = false;

    /// Takes a path in UTF-8 apart. Both slashes separate; without a drive or a separator at its start it continues `current`,
    /// and `D:name` does so if that is on the same drive. Nothing for an empty path, a network path, and one with a character
    /// that no name can have.
    static std::optional<DrivePath> parse(std::string_view path, const DrivePath& current);

    bool hasWildcards() const noexcept;
};

} // namespace mox::host
