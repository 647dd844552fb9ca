// Where a file operation puts things.
#pragma once

#include "host/files/files.h"

#include <string>
#include <string_view>

namespace mox::host {

/// A place on disk that may not exist yet, nor the folders in front of it.
struct OperationTarget {
    std::string path;
    /// The last name as the caller wrote it; that of an existing file may differ in case.
    std::string writtenName;
};

/// Where a path leads. Ends the operation for a path that no file can have.
OperationTarget findTarget(const Files& files, const CodePage& codePage, const std::string& path);

/// True if both are the same entry of the same folder, whichever way leads there.
bool isSameEntry(const std::string& first, const std::string& second);
/// True if a place lies in a folder at any depth, or is that folder; the place need not exist. False if `folder` is a link or a
/// file.
bool isInside(const std::string& place, const std::string& folder);

} // namespace mox::host
