// Version blocks: the tree of values that a version resource holds.
#pragma once

#include "automation/objects/export.h"
#include "host/text/codepage.h"

#include <span>
#include <string>
#include <string_view>

namespace mox::host {

/// The block for the A forms of the operations: the resource up to the end that it states itself, then a copy in which each text
/// value stands in the code page, ended by a NUL, at the place of the text in the resource. Empty for what is no version
/// resource.
MOX_API std::string versionBlock(std::string_view resource, const CodePage& codePage);

/// The value that a path of a block names, without regard to case: `\` is the fixed part, `\VarFileInfo\Translation` bytes,
/// `\StringFileInfo\040904E4\NAME` a text in the code page. False if there is none, or if the block is damaged or cut in front of
/// it. `value` is a view into the block.
MOX_API bool queryVersion(std::span<const char> block, std::string_view path, std::string_view& value);

} // namespace mox::host
