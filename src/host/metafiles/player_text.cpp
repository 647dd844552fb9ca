#include "host/metafiles/enhancedplayer.h"

namespace mox::host {

namespace {

constexpr std::size_t boundsSize = 16;
/// The graphics mode and the scale of its coordinates, which the mapping tells already.
constexpr std::size_t modeSize = 12;
constexpr std::uint32_t passedOn = ETO_OPAQUE | ETO_CLIPPED;

/// Of pairs, the distances along the line.
std::vector<std::int32_t> readDistances(RecordReader record, std::uint32_t offset, std::size_t count, bool arePairs) {
    std::vector<std::int32_t> distances;
    if (offset != 0) {
        RecordReader reader(record.part(offset, count * 4 * (arePairs ? 2 : 1)));
        distances.reserve(count);
        for (std::size_t index = 0; index < count; ++index) {
            distances.push_back(reader.i32());
            reader.skip(arePairs ? 4 : 0);
        }
    }
    return distances;
}

} // namespace

template <bool IsWide> bool EnhancedPlayer::extTextOut(RecordReader& record) {
    record.skip(boundsSize + modeSize);
    const POINT place = record.point();
    const std::uint32_t count = record.u32();
    const std::uint32_t offset = record.u32();
    const std::uint32_t options = record.u32();
    const RECT area = record.rect();
    const std::uint32_t distancesOffset = record.u32();
    RecordReader bytes(record.part(offset, std::size_t{count} * (IsWide ? 2 : 1)));
    std::u16string text;
    if (IsWide) {
        text = bytes.wideText(count);
    } else {
        text = codePage_.toUtf16(bytes.text(count));
    }
    auto distances = readDistances(record, distancesOffset, count, (options & ETO_PDY) != 0);
    if ((options & ETO_GLYPH_INDEX) != 0) {
        // Numbers in a font of another machine: only the ground can be drawn.
        text.clear();
    }
    if (distances.size() != text.size()) {
        distances.clear();
    }
    return stage_.target().extTextOut(place, options & passedOn, area, text, distances);
}

bool EnhancedPlayer::smallTextOut(RecordReader& record) {
    const POINT place = record.point();
    const std::uint32_t count = record.u32();
    const std::uint32_t options = record.u32();
    record.skip(modeSize);
    const bool hasArea = (options & ETO_NO_RECT) == 0;
    const RECT area = hasArea ? record.rect() : RECT{};
    std::u16string text;
    if ((options & ETO_SMALL_CHARS) != 0) {
        for (const std::byte unit : record.take(count)) {
            text.push_back(std::to_integer<char16_t>(unit));
        }
    } else {
        text = record.wideText(count);
    }
    if ((options & ETO_GLYPH_INDEX) != 0) {
        text.clear();
    }
    return stage_.target().extTextOut(place, hasArea ? options & passedOn : 0, area, text, {});
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::textRecords() {
    using Type = EnhancedRecord;
    using Player = EnhancedPlayer;
    static const Entry entries[]{
        {Type::extTextOutA, &Player::extTextOut<false>},
        {Type::extTextOutW, &Player::extTextOut<true>},
        {Type::smallTextOut, &Player::smallTextOut},
    };
    return entries;
}

} // namespace mox::host
