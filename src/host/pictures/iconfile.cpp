#include "host/pictures/iconfile.h"

#include "host/pictures/dib.h"
#include "host/pictures/imagelimits.h"
#include "host/pictures/pngfile.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <tuple>

namespace mox::host {

namespace {

constexpr std::uint16_t iconType = 1;
constexpr std::uint16_t cursorType = 2;
constexpr std::size_t directoryBytes = 6;
constexpr std::size_t entryBytes = 16;

/// One image of the file.
struct Entry {
    std::span<const std::byte> data;
    bool isPng = false;
    std::int64_t width = 0;
    std::int64_t height = 0;
    int bitsPerPixel = 0;
    platform::POINT hotspot;
};

/// Nothing for an image that is not in the file or has no sensible header.
std::optional<Entry> readEntry(ImageBytes bytes, std::size_t place) {
    try {
        Entry entry;
        entry.data = bytes.part(bytes.u32(place + 12), bytes.u32(place + 8));
        entry.hotspot = {bytes.u16(place + 4), bytes.u16(place + 6)};
        entry.isPng = isPng(entry.data);
        if (entry.isPng) {
            const platform::SIZE size = sizeOfPng(entry.data);
            entry.width = size.cx;
            entry.height = size.cy;
            entry.bitsPerPixel = 32;
        } else {
            const Dib dib = readDibHeader(entry.data);
            entry.width = dib.width;
            entry.height = dib.height / 2;
            entry.bitsPerPixel = dib.bitsPerPixel;
        }
        return entry;
    } catch (const ImageError&) {
        return std::nullopt;
    }
}

/// The smaller the better.
auto distanceFrom(platform::SIZE size, const Entry& entry) {
    return std::tuple(std::abs(entry.width - size.cx) + std::abs(entry.height - size.cy), -entry.width, -entry.bitsPerPixel);
}

Entry bestEntry(ImageBytes bytes, platform::SIZE size) {
    const std::size_t count = bytes.u16(4);
    std::optional<Entry> best;
    for (std::size_t i = 0; i < count; ++i) {
        const std::optional<Entry> entry = readEntry(bytes, directoryBytes + i * entryBytes);
        if (entry && (!best || distanceFrom(size, *entry) < distanceFrom(size, *best))) {
            best = entry;
        }
    }
    requireImage(best.has_value());
    return *best;
}

bool hasAlpha(const Bitmap& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y) {
        const std::span row(bitmap.pixels(y), static_cast<std::size_t>(bitmap.width()));
        if (std::ranges::any_of(row, [](Pixel pixel) { return pixel >> 24 != 0; })) {
            return true;
        }
    }
    return false;
}

/// The pixels in 32 bits, or in 1 bit for those that are only black and white.
std::shared_ptr<Bitmap> imageOf(const Bitmap& pixels) {
    const bool isBlackAndWhite = pixels.bitsPerPixel() == 1 && pixels.colors()[0] == 0 && pixels.colors()[1] == 0xFFFFFF;
    auto image = createImage({.width = pixels.width(), .height = pixels.height(), .bitsPerPixel = isBlackAndWhite ? 1 : 32});
    std::vector<Pixel> row(static_cast<std::size_t>(pixels.width()));
    for (int y = 0; y < pixels.height(); ++y) {
        if (pixels.isPlain()) {
            std::copy_n(pixels.pixels(y), row.size(), image->pixels(y));
        } else {
            pixels.read(0, y, row);
            image->write(0, y, row);
        }
    }
    return image;
}

std::shared_ptr<Bitmap> maskOf(const Bitmap& bits) {
    auto mask = createImage({.width = bits.width(), .height = bits.height(), .bitsPerPixel = 1});
    const std::size_t rowBytes = std::min(mask->rowBytes(), bits.rowBytes());
    for (int y = 0; y < bits.height(); ++y) {
        std::copy_n(bits.row(y), rowBytes, mask->row(y));
    }
    return mask;
}

Icon iconOfDib(std::span<const std::byte> data) {
    Dib dib = readDibHeader(data);
    requireImage(dib.compression == platform::BI_RGB && !dib.isTopDown && dib.height % 2 == 0);
    dib.height /= 2; // the mask lies above the image
    const std::span<const std::byte> pixels = ImageBytes(data).from(dib.headerBytes);
    const auto image = readDibPixels(dib, pixels);
    Icon icon;
    icon.image = imageOf(*image);
    icon.hasAlpha = image->isPlain() && hasAlpha(*icon.image);
    const std::span<const std::byte> rest = ImageBytes(pixels).from(std::min(image->bytes().size(), pixels.size()));
    if (!rest.empty() || !icon.hasAlpha) {
        const Dib mask{.width = dib.width, .height = dib.height, .bitsPerPixel = 1, .masks = {}, .colors = {}};
        icon.mask = maskOf(*readDibPixels(mask, rest));
    }
    return icon;
}

/// What an entry's image is written as.
std::vector<std::byte> dibOfIcon(const Icon& icon) {
    const Bitmap& image = *icon.image;
    ImageWriter writer;
    if (icon.hasAlpha || image.isMonochrome()) {
        writeDib(writer, image, image.height() * 2);
    } else {
        const auto plain = createImage({.width = image.width(), .height = image.height(), .bitsPerPixel = 24, .isSection = true});
        std::vector<Pixel> row(static_cast<std::size_t>(image.width()));
        for (int y = 0; y < image.height(); ++y) {
            image.read(0, y, row);
            plain->write(0, y, row);
        }
        writeDib(writer, *plain, image.height() * 2);
    }
    const std::size_t rowBytes = (static_cast<std::size_t>(image.width()) + 31) / 32 * 4;
    std::span<std::byte> room = writer.room(rowBytes * static_cast<std::size_t>(image.height()));
    for (int y = image.height() - 1; icon.mask && y >= 0; --y) {
        std::copy_n(icon.mask->row(y), std::min(rowBytes, icon.mask->rowBytes()), room.begin());
        room = room.subspan(rowBytes);
    }
    return writer.take();
}

} // namespace

bool isIconFile(std::span<const std::byte> file) noexcept {
    return file.size() >= directoryBytes && file[0] == std::byte{0} && file[1] == std::byte{0} &&
           (file[2] == std::byte{iconType} || file[2] == std::byte{cursorType}) && file[3] == std::byte{0};
}

Icon readIconFile(std::span<const std::byte> file, platform::SIZE size) {
    const ImageBytes bytes(file);
    requireImage(isIconFile(file));
    const Entry entry = bestEntry(bytes, size);
    Icon icon;
    if (entry.isPng) {
        icon.image = readPng(entry.data);
        icon.hasAlpha = true;
    } else {
        icon = iconOfDib(entry.data);
    }
    icon.isCursor = bytes.u16(2) == cursorType;
    icon.hotspot = icon.isCursor ? entry.hotspot : platform::POINT{icon.image->width() / 2, icon.image->height() / 2};
    return icon;
}

std::vector<std::byte> writeIconFile(const Icon& icon) {
    constexpr int mostPixels = 0x7FFF;
    if (icon.image->width() > mostPixels || icon.image->height() > mostPixels) {
        throw ImageError(ImageError::Kind::tooLarge);
    }
    const std::vector<std::byte> image = dibOfIcon(icon);
    // 0 stands for 256 and more.
    const auto extent = [](int pixels) { return static_cast<std::uint8_t>(pixels < 256 ? pixels : 0); };
    const std::size_t bits = icon.hasAlpha ? 32 : icon.image->isMonochrome() ? 1 : 24;
    ImageWriter writer;
    writer.u16(0);
    writer.u16(icon.isCursor ? cursorType : iconType);
    writer.u16(1);
    writer.u8(extent(icon.image->width()));
    writer.u8(extent(icon.image->height()));
    writer.u8(bits == 1 ? 2 : 0);
    writer.u8(0);
    writer.u16(icon.isCursor ? static_cast<std::size_t>(icon.hotspot.x) : 1);
    writer.u16(icon.isCursor ? static_cast<std::size_t>(icon.hotspot.y) : bits);
    writer.u32(image.size());
    writer.u32(directoryBytes + entryBytes);
    writer.bytes(image);
    return writer.take();
}

} // namespace mox::host
