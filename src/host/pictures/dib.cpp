#include "host/pictures/dib.h"

#include "host/pictures/imagelimits.h"
#include "host/pictures/runlength.h"

#include <algorithm>
#include <bit>

namespace mox::host {

namespace {

constexpr std::size_t coreHeaderBytes = 12;
constexpr std::size_t infoHeaderBytes = 40;
constexpr std::uint32_t alphaBitfields = 6;

std::size_t paddedRowBytes(std::int64_t width, int bitsPerPixel) {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel) + 31) / 32 * 4;
}

bool isKnownDepth(int bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

bool isOneGroup(std::uint32_t mask) {
    return mask != 0 && std::has_single_bit((mask >> std::countr_zero(mask)) + std::uint64_t{1});
}

ChannelMasks checkedMasks(ChannelMasks masks, int bits) {
    const std::uint32_t all = masks.red | masks.green | masks.blue;
    requireImage(isOneGroup(masks.red) && isOneGroup(masks.green) && isOneGroup(masks.blue));
    requireImage(std::popcount(all) == std::popcount(masks.red) + std::popcount(masks.green) + std::popcount(masks.blue));
    requireImage(bits == 32 || all <= 0xFFFF);
    return masks;
}

/// Reads compression and masks. The masks stand behind a header of 40 bytes, or in a longer one at the same place.
void readCompression(Dib& dib, ImageBytes bytes, std::size_t headerBytes) {
    const std::uint32_t compression = bytes.u32(16);
    dib.headerBytes = headerBytes;
    dib.masks = dib.bitsPerPixel == 16 ? masks555 : ChannelMasks();
    switch (compression) {
    case platform::BI_RGB:
        break;
    case platform::BI_RLE8:
    case platform::BI_RLE4:
        requireImage(dib.bitsPerPixel == (compression == platform::BI_RLE8 ? 8 : 4) && !dib.isTopDown);
        dib.compression = compression;
        break;
    case platform::BI_BITFIELDS:
    case alphaBitfields:
        requireImage(dib.bitsPerPixel == 16 || dib.bitsPerPixel == 32);
        dib.masks = checkedMasks({bytes.u32(40), bytes.u32(44), bytes.u32(48)}, dib.bitsPerPixel);
        if (headerBytes == infoHeaderBytes) {
            dib.headerBytes += compression == alphaBitfields ? 16 : 12;
        }
        break;
    default:
        throw ImageError();
    }
}

void readColors(Dib& dib, ImageBytes bytes, std::size_t count, std::size_t entryBytes, std::size_t end) {
    const std::size_t room = end > dib.headerBytes ? (end - dib.headerBytes) / entryBytes : 0;
    count = std::min(count, room);
    const ImageBytes colors(bytes.part(dib.headerBytes, count * entryBytes));
    dib.headerBytes += count * entryBytes;
    if (dib.bitsPerPixel > 8) {
        return; // only a hint for devices with few colours
    }
    for (std::size_t i = 0; i < std::min(count, std::size_t{1} << dib.bitsPerPixel); ++i) {
        const std::size_t place = i * entryBytes;
        dib.colors.push_back(colors.u8(place) | Pixel{colors.u8(place + 1)} << 8 | Pixel{colors.u8(place + 2)} << 16);
    }
}

Dib readCoreHeader(ImageBytes bytes, std::size_t colorsEnd) {
    Dib dib;
    dib.width = bytes.u16(4);
    dib.height = bytes.u16(6);
    dib.bitsPerPixel = bytes.u16(10);
    dib.headerBytes = coreHeaderBytes;
    requireImage(dib.bitsPerPixel == 1 || dib.bitsPerPixel == 4 || dib.bitsPerPixel == 8 || dib.bitsPerPixel == 24);
    readColors(dib, bytes, dib.bitsPerPixel <= 8 ? std::size_t{1} << dib.bitsPerPixel : 0, 3, colorsEnd);
    return dib;
}

Dib readInfoHeader(ImageBytes bytes, std::size_t headerBytes, std::size_t colorsEnd) {
    Dib dib;
    dib.width = bytes.i32(4);
    const std::int64_t height = bytes.i32(8);
    dib.isTopDown = height < 0;
    dib.height = dib.isTopDown ? -height : height;
    dib.bitsPerPixel = bytes.u16(14);
    requireImage(isKnownDepth(dib.bitsPerPixel));
    readCompression(dib, bytes, headerBytes);
    const std::size_t used = bytes.u32(32);
    const std::size_t most = std::size_t{1} << std::min(dib.bitsPerPixel, 8);
    readColors(dib, bytes, used != 0 ? used : dib.bitsPerPixel <= 8 ? most : 0, 4, colorsEnd);
    return dib;
}

void writeRows(ImageWriter& writer, const Bitmap& bitmap) {
    const std::size_t rowBytes = paddedRowBytes(bitmap.width(), bitmap.bitsPerPixel());
    const std::size_t used = std::min(rowBytes, bitmap.rowBytes());
    std::span<std::byte> room = writer.room(rowBytes * static_cast<std::size_t>(bitmap.height()));
    for (int y = bitmap.height() - 1; y >= 0; --y) {
        std::copy_n(bitmap.row(y), used, room.begin());
        room = room.subspan(rowBytes);
    }
}

/// The colours of a bitmap; of one without colours of its own, black and white.
std::vector<Pixel> colorsOf(const Bitmap& bitmap) {
    if (bitmap.isMonochrome()) {
        return {0, 0xFFFFFF};
    }
    return {bitmap.colors().begin(), bitmap.colors().end()};
}

bool needsMasks(const Bitmap& bitmap) {
    return (bitmap.bitsPerPixel() == 16 && bitmap.masks() != masks555) ||
           (bitmap.bitsPerPixel() == 32 && bitmap.masks() != ChannelMasks());
}

} // namespace

std::size_t Dib::rowBytes() const noexcept {
    return paddedRowBytes(width, bitsPerPixel);
}

Dib readDibHeader(ImageBytes bytes, std::size_t colorsEnd) {
    const std::size_t headerBytes = bytes.u32(0);
    Dib dib;
    if (headerBytes == coreHeaderBytes) {
        dib = readCoreHeader(bytes, colorsEnd);
    } else {
        requireImage(headerBytes >= infoHeaderBytes && headerBytes <= 256);
        dib = readInfoHeader(bytes, headerBytes, colorsEnd);
    }
    requireImage(dib.width > 0 && dib.height > 0);
    return dib;
}

std::shared_ptr<Bitmap> readDibPixels(const Dib& dib, std::span<const std::byte> data) {
    const bool isPacked = dib.compression != platform::BI_RGB;
    const std::size_t needed = checkedImageBytes(dib.width, dib.height, dib.bitsPerPixel);
    if (isPacked) {
        checkRatio(needed, data.size(), mostRunLengthRatio);
    } else {
        // The last row may lack what fills it up.
        requireImage(dib.rowBytes() * (static_cast<std::size_t>(dib.height) - 1) +
                         needed / static_cast<std::size_t>(dib.height) <=
                     data.size());
    }
    auto bitmap = createImage({.width = dib.width,
                               .height = static_cast<int>(dib.height),
                               .bitsPerPixel = dib.bitsPerPixel,
                               .isSection = true,
                               .isTopDown = dib.isTopDown,
                               .masks = dib.masks,
                               .colors = dib.colors});
    if (isPacked) {
        expandRunLengths(data, *bitmap);
        return bitmap;
    }
    std::copy_n(data.begin(), std::min(data.size(), bitmap->bytes().size()), bitmap->bytes().begin());
    return bitmap;
}

std::size_t dibHeaderBytes(const Bitmap& bitmap) {
    const std::size_t colors = bitmap.bitsPerPixel() <= 8 ? colorsOf(bitmap).size() : 0;
    return infoHeaderBytes + (needsMasks(bitmap) ? 12 : 0) + colors * 4;
}

void writeDib(ImageWriter& writer, const Bitmap& bitmap, std::int32_t height) {
    const bool hasMasks = needsMasks(bitmap);
    const std::vector<Pixel> colors = bitmap.bitsPerPixel() <= 8 ? colorsOf(bitmap) : std::vector<Pixel>();
    writer.u32(infoHeaderBytes);
    writer.i32(bitmap.width());
    writer.i32(height != 0 ? height : bitmap.height());
    writer.u16(1);
    writer.u16(static_cast<std::size_t>(bitmap.bitsPerPixel()));
    writer.u32(hasMasks ? platform::BI_BITFIELDS : platform::BI_RGB);
    writer.u32(paddedRowBytes(bitmap.width(), bitmap.bitsPerPixel()) * static_cast<std::size_t>(bitmap.height()));
    constexpr std::int32_t dotsPerMetre = 3780; // 96 dots per inch
    writer.i32(dotsPerMetre);
    writer.i32(dotsPerMetre);
    writer.u32(colors.size());
    writer.u32(0);
    if (hasMasks) {
        writer.u32(bitmap.masks().red);
        writer.u32(bitmap.masks().green);
        writer.u32(bitmap.masks().blue);
    }
    for (const Pixel color : colors) {
        writer.u32(color & 0xFFFFFF);
    }
    writeRows(writer, bitmap);
}

} // namespace mox::host
