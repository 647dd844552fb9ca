// Fonts in the place of those that other systems have.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace mox::host {

/// Families that can stand in for one, the best one first; none for a name without any. Without regard to case.
std::span<const std::string_view> standInsFor(std::string_view family) noexcept;
/// Families for a request whose name nothing fits, by the bits of its pitch and family. The last one is a generic name.
std::span<const std::string_view> defaultFamilies(std::uint8_t pitchAndFamily) noexcept;

} // namespace mox::host
