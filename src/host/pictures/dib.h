// Device-independent pixels as files hold them: a header, colours, rows.
#pragma once

#include "host/graphics/bitmap.h"
#include "host/pictures/imagebytes.h"

namespace mox::host {

/// A header that makes sense.
struct Dib {
    std::int32_t width = 0;
    /// Above 0.
    std::int64_t height = 0;
    bool isTopDown = false;
    int bitsPerPixel = 0;
    /// `BI_RGB`, `BI_RLE8` or `BI_RLE4`; masks count as the first.
    std::uint32_t compression = 0;
    ChannelMasks masks;
    std::vector<Pixel> colors;
    /// Of header and colours together.
    std::size_t headerBytes = 0;

    /// Of a row, filled up to 4 bytes.
    std::size_t rowBytes() const noexcept;
};

/// Reads the header at the beginning of `bytes` and the colours behind it, which end at `colorsEnd` at the latest.
Dib readDibHeader(ImageBytes bytes, std::size_t colorsEnd = ~std::size_t{0});
/// A section with the pixels that `data` begins with.
std::shared_ptr<Bitmap> readDibPixels(const Dib& dib, std::span<const std::byte> data);

/// Writes header, masks, colours and rows of a bitmap, from the bottom up. `height` is what the header says if it is not 0.
void writeDib(ImageWriter& writer, const Bitmap& bitmap, std::int32_t height = 0);
/// Bytes of header, masks and colours that `writeDib` puts in front of the rows.
std::size_t dibHeaderBytes(const Bitmap& bitmap);

} // namespace mox::host
