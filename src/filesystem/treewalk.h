// Walks through a tree of folders.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include <mox/values.h>

#include <string>
#include <string_view>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// How far a walk goes.
struct TreeBounds {
    Boolean subFolders;
    /// Levels below the root; -1 for all.
    Long maxDepth = -1;

    bool reaches(Long depth) const noexcept { return maxDepth == -1 || depth < maxDepth; }
};

/// The path of the first file or folder that a name, which may have wildcards, finds in a folder or, with `subFolders`, below it:
/// a folder before those in it, and these depth first. Only the first entry of a folder that fits is looked at. Folders whose
/// names begin with a point or "$" are not entered. Empty if there is none; errors end the search of their folder.
String searchTree(const std::u16string& name, const std::u16string& root, const TreeBounds& bounds, Boolean ignoreHidden);

/// All folders and files of a tree: a folder, its files, then each of its folders with all that lies in it. Below the root hidden
/// entries are always left out. `root` has to exist. Errors of texts go to the caller; an enumeration that fails ends its folder.
MOX_FS_FINDFF listTree(const std::u16string& root, const TreeBounds& bounds, Boolean ignoreHidden);
/// The listing of nothing.
MOX_FS_FINDFF emptyListing();

} // namespace mox::server
