// Plain types that the operations of several system libraries share.
#pragma once

#include <cstdint>

namespace mox::platform {

/// A handle: a number that the host gave out. 0 is none.
using Handle = std::int32_t;
inline constexpr Handle invalidHandle = -1;

} // namespace mox::platform
