// Deletes files and folders for good.
#pragma once

#include "host/shell/treewalk.h"

namespace mox::host {

/// Deletes a file, a link, or a folder and all in it. Links are deleted, not what they lead to, also if one takes the place of a
/// folder meanwhile; a folder that is another disk is left alone. Ends the operation at the first entry that cannot be deleted.
void deleteTree(const std::string& path, const TreeStep& before);

} // namespace mox::host
