// Folders on disk.
#pragma once

#include "host/files/folderlisting.h"
#include "host/text/codepage.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// A path on disk: plain text, with no separator at its end but for the root of the disk.
struct DiskPath {
    std::string text;
    /// The part of the text that is the folder of the drive; 0 if that is the root of the disk.
    std::size_t rootLength = 0;
};

/// `name` in `folder`.
std::string joined(std::string_view folder, std::string_view name);

/// The folder that a path on disk lies in, and the last name of the path.
std::string parentOf(std::string_view path);
std::string nameOf(std::string_view path);

/// True if there is something at a path, be it a link that leads nowhere.
bool existsOnDisk(const std::string& path) noexcept;
/// True if a path leads to a folder, also by a link.
bool isFolderOnDisk(const std::string& path) noexcept;

/// True if a path leads to a folder, also by a link, in which the present user may list and reach files.
bool isReadableFolder(const std::string& path) noexcept;

/// The names in a folder but "." and ".."; nothing, with the reason in `errno`, if it cannot be read.
std::optional<std::vector<std::string>> namesIn(const std::string& folder);

/// The name on disk that a name in a path means if there is not the very same one: one that differs in case, else the one with
/// that short name. Of several that differ in case only the first in the order of bytes counts. Dots and blanks at the end of the
/// name do not count, unless a file has them. Empty if there is none.
std::string findOtherName(const FolderListing& listing, std::string_view name, const CodePage& codePage);

/// The short name of a file in a folder; the name itself if that is one.
std::string shortNameIn(const std::string& folder, const std::string& name, const CodePage& codePage);

/// The name of a file as paths have it: in the code page, or its short name if the code page does not hold it.
std::string writtenName(const std::string& folder, const std::string& name, const CodePage& codePage);

} // namespace mox::host
