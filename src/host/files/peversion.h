// The version resource of program files.
#pragma once

#include "automation/objects/export.h"

#include <string>

namespace mox::host {

/// The bytes of the first version resource of a program file (PE32 or PE32+); empty if the file has none, cannot be read or is
/// damaged. Reads only what leads there, a bounded number of bytes of a file of any size and contents.
MOX_API std::string readVersionResource(const std::string& path);

} // namespace mox::host
