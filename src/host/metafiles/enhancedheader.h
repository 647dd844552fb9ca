// The first record of an enhanced metafile.
#pragma once

#include "automation/objects/export.h"

#include "host/graphics/device.h"
#include "host/graphics/transform.h"

#include "platform/gditypes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mox::host {

struct MOX_API EnhancedHeader {
    /// What is drawn, in device units of the reference device. The last pixels belong to it; if nothing is drawn, they lie before
    /// the first.
    platform::RECT bounds{0, 0, -1, -1};
    /// The picture, in hundredths of a millimetre. The right and the lower edge do not belong to it.
    platform::RECT frame;
    /// Of the whole metafile, its header and its end included.
    std::uint32_t bytes = 0;
    std::uint32_t records = 0;
    /// Places in the table of objects; the first is never used.
    std::uint16_t handles = 1;
    /// As it was given: the program and the picture, each with a NUL behind it, and another NUL.
    std::u16string description{};
    /// The reference device in pixels and in thousandths of a millimetre.
    platform::SIZE device;
    platform::SIZE micrometers;

    /// Nothing for bytes that are no enhanced metafile, or whose end is missing.
    static std::optional<EnhancedHeader> read(std::span<const std::byte> metafile);
    std::vector<std::byte> write() const;
    /// Facts of the device.
    void setDevice(const Device& reference);

    /// From device units to hundredths of a millimetre.
    double hundredthsX() const { return micrometers.cx / 10.0 / device.cx; }
    double hundredthsY() const { return micrometers.cy / 10.0 / device.cy; }
    /// The frame of what is drawn: it is as large as its pixels.
    platform::RECT frameOfBounds() const;
    /// Takes device units to where the frame fills an area.
    Transform toFill(const platform::RECT& area) const;
};

} // namespace mox::host
