#include "host/metafiles/enhancedplayer.h"

#include <array>
#include <new>

namespace mox::host {

EnhancedPlayer::EnhancedPlayer(DeviceContext& target, const EnhancedHeader& header, const platform::RECT& area,
                               const CodePage& codePage)
    : codePage_(codePage), stage_(target, header.toFill(area), header.device, header.micrometers), objects_(header.handles) {}

EnhancedPlayer::Handler EnhancedPlayer::handlerOf(std::uint32_t type) {
    constexpr std::size_t most = 128;
    static const std::array<Handler, most> handlers = [] {
        std::array<Handler, most> table{};
        for (const auto group : {stateRecords(), objectRecords(), shapeRecords(), pathRecords(), regionRecords(), bitmapRecords(),
                                 gradientRecords(), textRecords()}) {
            for (const Entry& entry : group) {
                table[static_cast<std::size_t>(entry.type)] = entry.handler;
            }
        }
        return table;
    }();
    return type < most ? handlers[type] : nullptr;
}

bool EnhancedPlayer::play(std::span<const std::byte> metafile) {
    RecordReader records(metafile);
    bool isDrawn = true;
    while (true) {
        const std::size_t start = records.place();
        const auto type = records.u32();
        const std::uint32_t size = records.u32();
        if (size < 8 || size % 4 != 0) {
            return false;
        }
        RecordReader record(records.part(start, size));
        record.skip(8);
        records.seek(start + size);
        if (static_cast<EnhancedRecord>(type) == EnhancedRecord::endOfFile) {
            return isDrawn;
        }
        if (const Handler handler = handlerOf(type); handler != nullptr) {
            isDrawn = (this->*handler)(record) && isDrawn;
        }
    }
}

bool playEnhanced(std::span<const std::byte> metafile, DeviceContext& target, const platform::RECT& area,
                  const CodePage& codePage) {
    const auto header = EnhancedHeader::read(metafile);
    if (!header) {
        return false;
    }
    try {
        return EnhancedPlayer(target, *header, area, codePage).play(metafile.first(header->bytes));
    } catch (const BrokenRecord&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace mox::host
