// Logical units on a device.
#pragma once

namespace mox::host {

/// How a font's logical units lie on a device.
struct TextScale {
    /// Pixels of one unit, downwards.
    double height = 1;
    /// How much wider than high.
    double stretch = 1;
    /// Tenths of a degree, counterclockwise, added to the font's own.
    int turn = 0;
    bool operator==(const TextScale&) const = default;
};

} // namespace mox::host
