#include "host/metafiles/oldplayer.h"

#include "host/metafiles/enhancedrecords.h"

#include <new>

namespace mox::host {

namespace {

constexpr std::size_t headerSize = 18;
constexpr std::uint16_t headerWords = 9;

struct OldHeader {
    std::size_t size = 0;
    std::uint16_t objects = 0;
};

std::optional<OldHeader> readHeader(std::span<const std::byte> metafile) {
    try {
        RecordReader reader(metafile);
        const std::uint16_t type = reader.u16();
        const std::uint16_t words = reader.u16();
        const std::uint16_t version = reader.u16();
        OldHeader header;
        header.size = std::size_t{2} * reader.u32();
        header.objects = reader.u16();
        // In memory or on disk, of the two versions that there are.
        const bool isKnown = (type == 1 || type == 2) && words == headerWords && (version == 0x100 || version == 0x300);
        return isKnown && header.size >= headerSize && header.size <= metafile.size() ? std::optional(header) : std::nullopt;
    } catch (const BrokenRecord&) {
        return std::nullopt;
    }
}

} // namespace

std::optional<std::size_t> sizeOfOld(std::span<const std::byte> metafile) {
    const auto header = readHeader(metafile);
    return header ? std::optional(header->size) : std::nullopt;
}

bool playOld(std::span<const std::byte> metafile, DeviceContext& target, const CodePage& codePage) {
    const auto header = readHeader(metafile);
    const Device& device = target.device();
    const SIZE pixels{device.capability(platform::HORZRES), device.capability(platform::VERTRES)};
    const SIZE micrometers{device.capability(platform::HORZSIZE) * 1000, device.capability(platform::VERTSIZE) * 1000};
    if (!header || pixels.cx <= 0 || pixels.cy <= 0 || micrometers.cx <= 0 || micrometers.cy <= 0) {
        return false;
    }
    try {
        return OldPlayer(target, header->objects, pixels, micrometers, codePage)
            .play(metafile.subspan(headerSize, header->size - headerSize));
    } catch (const BrokenRecord&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

OldPlayer::OldPlayer(DeviceContext& target, std::uint16_t objects, SIZE device, SIZE micrometers, const CodePage& codePage)
    : codePage_(codePage), stage_(target, Transform(), device, micrometers), objects_(objects) {
    Mapping mapping = stage_.mapping();
    mapping.setMode(MM_ANISOTROPIC);
    mapping.setWindowExtent(device);
    mapping.setViewportExtent(device);
    stage_.setMapping(mapping);
}

const std::unordered_map<std::uint16_t, OldPlayer::Handler>& OldPlayer::handlers() {
    static const std::unordered_map<std::uint16_t, Handler> table = [] {
        std::unordered_map<std::uint16_t, Handler> all;
        for (const auto group : {stateRecords(), objectRecords(), shapeRecords(), bitmapRecords(), textRecords()}) {
            for (const Entry& entry : group) {
                all.emplace(static_cast<std::uint16_t>(entry.function), entry.handler);
            }
        }
        return all;
    }();
    return table;
}

bool OldPlayer::play(std::span<const std::byte> records) {
    constexpr std::uint32_t leastWords = 3;
    RecordReader reader(records);
    bool isDrawn = true;
    while (true) {
        const std::size_t start = reader.place();
        const std::uint32_t words = reader.u32();
        const std::uint16_t function = reader.u16();
        if (static_cast<OldRecord>(function) == OldRecord::endOfFile) {
            return isDrawn;
        }
        if (words < leastWords) {
            return false;
        }
        RecordReader arguments(reader.part(reader.place(), std::size_t{2} * (words - leastWords)));
        reader.seek(start + std::size_t{2} * words);
        if (const auto found = handlers().find(function); found != handlers().end()) {
            isDrawn = (this->*found->second)(arguments) && isDrawn;
        }
    }
}

POINT readOldPoint(RecordReader& record) {
    const std::int32_t y = record.i16();
    return {record.i16(), y};
}

RECT readOldRect(RecordReader& record) {
    const POINT lower = readOldPoint(record);
    const POINT upper = readOldPoint(record);
    return {upper.x, upper.y, lower.x, lower.y};
}

} // namespace mox::host
