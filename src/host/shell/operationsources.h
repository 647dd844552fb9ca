// What a file operation works on.
#pragma once

#include "host/files/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// A file, folder or link that exists.
struct OperationSource {
    DiskPath path;
    /// False if a pattern found it.
    bool named = true;
    bool isDriveRoot = false;
};

/// The paths of a list whose entries each end in a NUL; an empty entry, or the end of the text, ends the list.
std::vector<std::string> pathsOf(std::string_view list);

/// The files of a list of paths, the patterns in their last names expanded; hidden files are found too. Ends the operation for a
/// path or pattern that finds nothing, but for `*` and `*.*`: an empty folder holds all that it can. An empty list is invalid.
std::vector<OperationSource> findSources(const Files& files, std::string_view list);

} // namespace mox::host
