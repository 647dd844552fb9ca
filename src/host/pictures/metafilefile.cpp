#include "host/pictures/metafilefile.h"

#include "host/pictures/imagebytes.h"
#include "host/pictures/picturecontent.h"

#include <algorithm>
#include <cstdlib>

namespace mox::host {

namespace {

// Old-style metafiles: sizes in words.
constexpr std::uint32_t placeableKey = 0x9AC6CDD7;
constexpr std::size_t placeableBytes = 22;
constexpr std::size_t oldHeaderBytes = 18;
constexpr std::uint16_t oldEnd = 0;
constexpr std::uint16_t setWindowExtent = 0x020C;

// Enhanced ones: sizes in bytes.
constexpr std::uint32_t enhancedHeader = 1;
constexpr std::uint32_t enhancedEnd = 14;
constexpr std::uint32_t enhancedSignature = 0x464D4520;
constexpr std::size_t leastHeaderBytes = 88;

constexpr std::int32_t himetricPerInch = 2540;

bool beginsWithHeader(std::span<const std::byte> file) {
    const ImageBytes bytes(file);
    return file.size() >= oldHeaderBytes && (bytes.u16(0) == 1 || bytes.u16(0) == 2) && bytes.u16(2) == oldHeaderBytes / 2 &&
           (bytes.u16(4) == 0x0100 || bytes.u16(4) == 0x0300);
}

bool isPlaceable(std::span<const std::byte> file) {
    return file.size() >= placeableBytes && ImageBytes(file).u32(0) == placeableKey;
}

platform::SIZE sizeOfPlaceable(ImageBytes bytes) {
    const int perInch = bytes.u16(14);
    requireImage(perInch != 0);
    const auto himetric = [&](std::size_t from, std::size_t to) {
        const std::int64_t extent = std::abs(bytes.i16(to) - bytes.i16(from));
        return static_cast<std::int32_t>((extent * himetricPerInch + perInch / 2) / perInch);
    };
    return {himetric(6, 10), himetric(8, 12)};
}

/// What walking over the records finds.
struct OldRecords {
    std::size_t bytes = 0;
    platform::SIZE window;
};

OldRecords walkOldRecords(ImageBytes bytes) {
    OldRecords found{oldHeaderBytes, {}};
    for (bool isEnd = false; !isEnd;) {
        const std::size_t size = std::size_t{bytes.u32(found.bytes)} * 2;
        const std::uint16_t function = bytes.u16(found.bytes + 4);
        requireImage(size >= 6);
        const ImageBytes record(bytes.part(found.bytes, size));
        if (function == setWindowExtent && found.window == platform::SIZE()) {
            found.window = {std::abs(record.i16(8)), std::abs(record.i16(6))};
        }
        isEnd = function == oldEnd;
        found.bytes += size;
    }
    return found;
}

/// The most units an inch with which both extents fit into 16 bits.
std::int32_t unitsPerInch(platform::SIZE size) {
    std::int32_t units = himetricPerInch;
    while (std::int64_t{std::max(size.cx, size.cy)} * units / himetricPerInch > 0x7FFF && units > 1) {
        units = (units + 1) / 2;
    }
    return units;
}

} // namespace

bool isOldMetafile(std::span<const std::byte> file) noexcept {
    return isPlaceable(file) || beginsWithHeader(file);
}

PlacedMetafile readOldMetafile(std::span<const std::byte> file) {
    const bool hasPlace = isPlaceable(file);
    const ImageBytes bytes(hasPlace ? ImageBytes(file).from(placeableBytes) : file);
    requireImage(beginsWithHeader(bytes.all()));
    const OldRecords records = walkOldRecords(bytes);
    const platform::SIZE size = hasPlace
                                    ? sizeOfPlaceable(file)
                                    : platform::SIZE{himetricOfPixels(records.window.cx), himetricOfPixels(records.window.cy)};
    const auto bits = bytes.part(0, records.bytes);
    return {{{bits.begin(), bits.end()}}, size};
}

std::vector<std::byte> writeOldMetafile(const PlacedMetafile& metafile) {
    const std::int32_t units = unitsPerInch(metafile.size);
    const auto extent = [&](std::int32_t himetric) {
        const std::int64_t value = (std::int64_t{himetric} * units + himetricPerInch / 2) / himetricPerInch;
        return static_cast<std::uint16_t>(std::clamp<std::int64_t>(value, 0, 0x7FFF));
    };
    const std::uint16_t words[] = {placeableKey & 0xFFFF,
                                   placeableKey >> 16,
                                   0,
                                   0,
                                   0,
                                   extent(metafile.size.cx),
                                   extent(metafile.size.cy),
                                   static_cast<std::uint16_t>(units),
                                   0,
                                   0};
    std::uint16_t checksum = 0;
    ImageWriter writer;
    for (const std::uint16_t word : words) {
        writer.u16(word);
        checksum ^= word;
    }
    writer.u16(checksum);
    writer.bytes(metafile.metafile.bits);
    return writer.take();
}

bool isEnhancedMetafile(std::span<const std::byte> file) noexcept {
    const ImageBytes bytes(file);
    return file.size() >= leastHeaderBytes && bytes.u32(0) == enhancedHeader && bytes.u32(40) == enhancedSignature;
}

EnhancedMetafile readEnhancedMetafile(std::span<const std::byte> file) {
    requireImage(isEnhancedMetafile(file));
    const std::size_t size = ImageBytes(file).u32(48);
    const ImageBytes bytes(ImageBytes(file).part(0, size));
    requireImage(bytes.u32(4) >= leastHeaderBytes);
    std::size_t place = 0;
    for (bool isEnd = false; !isEnd;) {
        const std::size_t length = bytes.u32(place + 4);
        requireImage(length >= 8 && length % 4 == 0);
        bytes.part(place, length);
        isEnd = bytes.u32(place) == enhancedEnd;
        place += length;
    }
    return {{bytes.all().begin(), bytes.all().end()}};
}

} // namespace mox::host
