// The screen's resolution and size.
#pragma once

namespace mox::host {

inline constexpr int screenDotsPerInch = 96;
/// Twips are 1/1440 inch.
inline constexpr float twipsPerPixel = 1440.0F / screenDotsPerInch;

/// In pixels.
inline constexpr int screenWidth = 1024;
inline constexpr int screenHeight = 768;

} // namespace mox::host
