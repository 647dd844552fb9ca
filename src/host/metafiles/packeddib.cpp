#include "host/metafiles/packeddib.h"

#include "host/metafiles/recordreader.h"
#include "host/metafiles/runlengths.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>

namespace mox::host {

namespace {

constexpr std::uint32_t oldHeaderSize = 12;
constexpr std::uint32_t headerSize = 40;
constexpr std::uint32_t mostHeaderSize = 1024;
constexpr std::int32_t mostExtent = 1 << 20;

/// A description of pixels, taken apart.
struct Description {
    BitmapFormat format{.isSection = true};
    std::uint32_t compression = platform::BI_RGB;
    /// Bytes up to the pixels of a packed one.
    std::size_t size = 0;
};

bool isPacked(std::uint32_t compression) {
    return compression == platform::BI_RLE8 || compression == platform::BI_RLE4;
}

/// The colours of an old header are three bytes each.
void readColors(RecordReader& reader, BitmapFormat& format, std::size_t count, bool isOld, bool usesPalette) {
    for (std::size_t index = 0; index < count; ++index) {
        Pixel color = 0;
        if (usesPalette) {
            color = reader.u16() != 0 ? 0xFFFFFF : 0;
        } else {
            const Pixel blue = reader.u8();
            const Pixel green = reader.u8();
            color = blue | green << 8 | Pixel{reader.u8()} << 16;
            reader.skip(isOld ? 0 : 1);
        }
        format.colors.push_back(color);
    }
}

void readMasks(RecordReader& reader, ChannelMasks& masks) {
    masks.red = reader.u32();
    masks.green = reader.u32();
    masks.blue = reader.u32();
}

/// Each of one run of bits, and none in two of them.
bool arePossible(const ChannelMasks& masks, int bitsPerPixel) {
    std::uint32_t all = 0;
    for (const std::uint32_t mask : {masks.red, masks.green, masks.blue}) {
        const std::uint32_t run = mask == 0 ? 0 : mask >> std::countr_zero(mask);
        if (run == 0 || (run & (run + 1)) != 0 || (all & mask) != 0 || (bitsPerPixel == 16 && mask > 0xFFFF)) {
            return false;
        }
        all |= mask;
    }
    return true;
}

bool isKnown(const Description& description) {
    const int bits = description.format.bitsPerPixel;
    switch (description.compression) {
    case platform::BI_RGB:
        return true;
    case platform::BI_RLE8:
        return bits == 8;
    case platform::BI_RLE4:
        return bits == 4;
    case platform::BI_BITFIELDS:
        return bits == 16 || bits == 32;
    default:
        return false;
    }
}

void readOldHeader(RecordReader& reader, Description& description) {
    description.format.width = reader.u16();
    description.format.height = reader.u16();
    reader.skip(2);
    description.format.bitsPerPixel = reader.u16();
    description.format.isTopDown = false;
}

/// The number of colours that it says it has.
std::uint32_t readHeader(RecordReader& reader, Description& description) {
    description.format.width = reader.i32();
    const std::int32_t height = reader.i32();
    if (height < -mostExtent || height > mostExtent) {
        throw BrokenRecord();
    }
    description.format.isTopDown = height < 0;
    description.format.height = std::abs(height);
    reader.skip(2);
    description.format.bitsPerPixel = reader.u16();
    description.compression = reader.u32();
    reader.skip(12);
    const std::uint32_t used = reader.u32();
    reader.skip(4);
    return used;
}

Description readDescription(std::span<const std::byte> info, bool usesPalette) {
    RecordReader reader(info);
    Description description;
    BitmapFormat& format = description.format;
    const std::uint32_t size = reader.u32();
    const bool isOld = size == oldHeaderSize;
    std::uint32_t used = 0;
    if (isOld) {
        readOldHeader(reader, description);
    } else if (size >= headerSize && size <= mostHeaderSize) {
        used = readHeader(reader, description);
    } else {
        throw BrokenRecord();
    }
    if (!isKnown(description) || format.width < 1 || format.height < 1 || format.width > mostExtent ||
        (format.isTopDown && isPacked(description.compression))) {
        throw BrokenRecord();
    }
    if (format.bitsPerPixel == 16) {
        format.masks = masks555;
    }
    if (description.compression == platform::BI_BITFIELDS) {
        readMasks(reader, format.masks);
        if (!arePossible(format.masks, format.bitsPerPixel)) {
            throw BrokenRecord();
        }
    }
    reader.seek(std::max<std::size_t>(reader.place(), size));
    const std::uint32_t most = format.bitsPerPixel <= 8 ? 1U << format.bitsPerPixel : 0;
    if (most != 0) {
        const std::size_t entry = usesPalette ? 2 : isOld ? 3 : 4;
        // Some writers leave out the colours at the end.
        const std::size_t said = used == 0 || used > most ? most : used;
        readColors(reader, format, std::min(said, reader.left() / entry), isOld, usesPalette);
        description.size = reader.place();
    } else {
        // A palette for devices of few colours.
        description.size = reader.place() + std::size_t{4} * std::min<std::uint32_t>(used, 256);
    }
    return description;
}

std::size_t rowBytesOf(const BitmapFormat& format) {
    return (static_cast<std::size_t>(format.width) * static_cast<std::size_t>(format.bitsPerPixel) + 31) / 32 * 4;
}

std::shared_ptr<Bitmap> unpack(const Description& description, std::span<const std::byte> bits) {
    const BitmapFormat& format = description.format;
    const std::size_t size = rowBytesOf(format) * static_cast<std::size_t>(format.height);
    const bool isRunLengths = isPacked(description.compression);
    if (size > mostUnpackedBytes || (!isRunLengths && size > bits.size())) {
        return nullptr;
    }
    auto bitmap = Bitmap::create(format);
    if (!bitmap) {
        return nullptr;
    }
    if (isRunLengths) {
        unpackRunLengths(bits, *bitmap);
    } else {
        std::ranges::copy(bits.first(size), bitmap->bytes().begin());
    }
    return bitmap;
}

} // namespace

std::shared_ptr<Bitmap> readDib(std::span<const std::byte> info, std::span<const std::byte> bits, bool usesPalette) {
    try {
        return unpack(readDescription(info, usesPalette), bits);
    } catch (const BrokenRecord&) {
        return nullptr;
    }
}

std::shared_ptr<Bitmap> readPackedDib(std::span<const std::byte> dib, bool usesPalette) {
    try {
        const Description description = readDescription(dib, usesPalette);
        return description.size > dib.size() ? nullptr : unpack(description, dib.subspan(description.size));
    } catch (const BrokenRecord&) {
        return nullptr;
    }
}

std::shared_ptr<Bitmap> readDibRows(std::span<const std::byte> info, std::span<const std::byte> bits, std::uint32_t rowCount,
                                    bool usesPalette) {
    try {
        Description description = readDescription(info, usesPalette);
        int& height = description.format.height;
        height = static_cast<int>(std::min(static_cast<std::uint32_t>(height), rowCount));
        return unpack(description, bits);
    } catch (const BrokenRecord&) {
        return nullptr;
    }
}

std::shared_ptr<Bitmap> toMonochrome(const Bitmap& bitmap) {
    auto result = Bitmap::create({.width = bitmap.width(), .height = bitmap.height(), .bitsPerPixel = 1});
    if (result) {
        std::vector<Pixel> row(static_cast<std::size_t>(bitmap.width()));
        for (int y = 0; y < bitmap.height(); ++y) {
            bitmap.read(0, y, row);
            result->write(0, y, row);
        }
    }
    return result;
}

namespace {

template <class Value> void append(std::vector<std::byte>& bytes, const Value& value) {
    const auto part = std::as_bytes(std::span(&value, 1));
    bytes.insert(bytes.end(), part.begin(), part.end());
}

} // namespace

PackedDib writeDib(const Bitmap& bitmap, const platform::RECT& area, platform::COLORREF zero, platform::COLORREF one) {
    const int bits = bitmap.bitsPerPixel();
    PackedDib dib{{}, {}, area};
    // Whole bytes.
    dib.area.left -= bits < 8 ? area.left % (8 / bits) : 0;
    const std::int32_t width = dib.area.right - dib.area.left;
    const std::int32_t height = dib.area.bottom - dib.area.top;
    const bool hasMasks = (bits == 16 && bitmap.masks() != masks555) || (bits == 32 && bitmap.masks() != ChannelMasks());
    platform::BITMAPINFOHEADER header{.biWidth = width, .biHeight = height, .biBitCount = static_cast<std::uint16_t>(bits)};
    header.biCompression = hasMasks ? platform::BI_BITFIELDS : platform::BI_RGB;
    append(dib.info, header);
    if (hasMasks) {
        append(dib.info, bitmap.masks());
    }
    if (bitmap.isMonochrome()) {
        append(dib.info, toPixel(zero));
        append(dib.info, toPixel(one));
    } else if (bits <= 8) {
        for (const Pixel color : bitmap.colors()) {
            append(dib.info, color & 0xFFFFFF);
        }
    }
    const std::size_t used = (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 7) / 8;
    const std::size_t rowBytes = (used + 3) / 4 * 4;
    dib.bits.resize(rowBytes * static_cast<std::size_t>(height));
    std::byte* target = dib.bits.data();
    for (std::int32_t y = dib.area.bottom - 1; y >= dib.area.top; --y, target += rowBytes) {
        std::memcpy(target, bitmap.row(y) + static_cast<std::ptrdiff_t>(dib.area.left) * bits / 8, used);
    }
    return dib;
}

SignedRect fromTop(const SignedRect& area, const Bitmap& bitmap) {
    if (bitmap.isTopDown()) {
        return area;
    }
    const std::int32_t height = std::abs(area.cy);
    const std::int32_t top = bitmap.height() - area.y - height;
    return {area.x, area.cy < 0 ? top + height : top, area.cx, area.cy};
}

} // namespace mox::host
