// Files with code that this process has loaded.
#pragma once

#include <filesystem>

namespace mox::host {

/// The program or library file that an address lies in; empty for an address in none.
std::filesystem::path fileOfCode(const void* code);

} // namespace mox::host
