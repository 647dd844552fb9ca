// The screen's resolution.
#pragma once

namespace mox::host {

inline constexpr int screenDotsPerInch = 96;
/// Twips are 1/1440 inch.
inline constexpr float twipsPerPixel = 1440.0F / screenDotsPerInch;

} // namespace mox::host
