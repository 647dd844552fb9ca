#pragma once

#include "host/files/files.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace mox::host {

/// Writes the drive path of the program that opens `file`, with a final NUL, into `result`; of a relative path `folder` is the
/// start, if it is given. The answer is above 32 on success; 2 if there is no such file, 3 if there is no such folder, 31 if no
/// program opens it, 8 if `result` is too small. Without success `result` begins with a NUL.
std::int32_t findExecutable(const Files& files, std::string_view file, std::string_view folder, std::span<char> result);

} // namespace mox::host
