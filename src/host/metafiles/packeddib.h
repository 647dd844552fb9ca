// Device-independent bitmaps in the bytes of a record.
#pragma once

#include "automation/objects/export.h"

#include "host/graphics/canvas.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace mox::host {

/// The most bytes of pixels that a bitmap in a record unpacks to.
inline constexpr std::size_t mostUnpackedBytes = std::size_t{1} << 26;

/// A section of the pixels that `info` describes: a header of 12, 40 or more bytes, and masks or colours behind it. Null if
/// `bits` are too few, for what is no known format, and for sizes that cannot be. `usesPalette`: 16-bit numbers are in the place
/// of colours, of which only black and white can be known.
MOX_API std::shared_ptr<Bitmap> readDib(std::span<const std::byte> info, std::span<const std::byte> bits,
                                        bool usesPalette = false);
/// The same with the pixels right behind the description.
MOX_API std::shared_ptr<Bitmap> readPackedDib(std::span<const std::byte> dib, bool usesPalette = false);

/// A bitmap of the first rows in `bits` alone, which need not hold more.
MOX_API std::shared_ptr<Bitmap> readDibRows(std::span<const std::byte> info, std::span<const std::byte> bits,
                                            std::uint32_t rowCount, bool usesPalette = false);
/// A rectangle of a bitmap as it is from the top; records count the rows of one that is stored from the bottom up from there.
SignedRect fromTop(const SignedRect& area, const Bitmap& bitmap);
/// The same pixels in a bitmap without colours: 1 for what is nearer to white. Null if there is no memory.
std::shared_ptr<Bitmap> toMonochrome(const Bitmap& bitmap);

/// A description with its colours, and rows from the bottom up.
struct PackedDib {
    std::vector<std::byte> info;
    std::vector<std::byte> bits;
    /// The part of the bitmap that it holds, at least what was asked for.
    platform::RECT area;
};
/// The pixels of an area that lies in the bitmap, as they are. The colours of a monochrome bitmap are those given.
MOX_API PackedDib writeDib(const Bitmap& bitmap, const platform::RECT& area, platform::COLORREF zero, platform::COLORREF one);

} // namespace mox::host
