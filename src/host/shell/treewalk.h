// A walk through a tree of files.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace mox::host {

/// Told of each entry before something is done to it. What it throws ends the work.
using TreeStep = std::function<void(const std::string& path)>;

/// Visits a file, or a folder and all in it, the folder first. Follows no link; a folder that cannot be read counts as empty.
void walkTree(const std::string& path, const TreeStep& visit);

/// The number of entries in a tree, its top included.
std::uint64_t entriesIn(const std::string& path);

} // namespace mox::host
