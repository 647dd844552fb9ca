// How text lies about its point, and the options of its output.
#pragma once

#include <cstdint>

namespace mox::host {

inline constexpr std::uint32_t TA_UPDATECP = 1;
inline constexpr std::uint32_t TA_RIGHT = 2;
inline constexpr std::uint32_t TA_CENTER = 6;
inline constexpr std::uint32_t TA_BOTTOM = 8;
inline constexpr std::uint32_t TA_BASELINE = 24;

inline constexpr std::uint32_t ETO_OPAQUE = 2;
inline constexpr std::uint32_t ETO_CLIPPED = 4;

} // namespace mox::host
