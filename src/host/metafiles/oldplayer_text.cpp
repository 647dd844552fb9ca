#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/oldplayer.h"

#include <algorithm>

namespace mox::host {

bool OldPlayer::textOut(RecordReader& record) {
    const std::uint16_t count = record.u16();
    const std::string text = record.text(count);
    // Filled up to whole words.
    record.skip(count % 2);
    return stage_.target().textOut(readOldPoint(record), codePage_.toUtf16(text));
}

bool OldPlayer::extTextOut(RecordReader& record) {
    const POINT place = readOldPoint(record);
    const std::uint16_t count = record.u16();
    const std::uint32_t options = record.u16() & (ETO_OPAQUE | ETO_CLIPPED);
    RECT area;
    if (options != 0) {
        const POINT first = record.point16();
        const POINT second = record.point16();
        area = {first.x, first.y, second.x, second.y};
    }
    const std::u16string text = codePage_.toUtf16(record.text(count));
    record.skip(std::min<std::size_t>(count % 2, record.left()));
    std::vector<std::int32_t> distances;
    // One a byte: of characters of two bytes they cannot be told.
    if (text.size() == count && record.left() >= std::size_t{2} * count) {
        for (std::uint16_t index = 0; index < count; ++index) {
            distances.push_back(record.i16());
        }
    }
    return stage_.target().extTextOut(place, options, area, text, distances);
}

std::span<const OldPlayer::Entry> OldPlayer::textRecords() {
    static const Entry entries[]{
        {OldRecord::textOut, &OldPlayer::textOut},
        {OldRecord::extTextOut, &OldPlayer::extTextOut},
    };
    return entries;
}

} // namespace mox::host
