#include "host/metafiles/oldplayer.h"

namespace mox::host {

template <bool (Stage::*Member)(POINT)> bool OldPlayer::point(RecordReader& record) {
    return (stage_.*Member)(readOldPoint(record));
}

template <bool (Stage::*Member)(const RECT&)> bool OldPlayer::box(RecordReader& record) {
    return (stage_.*Member)(readOldRect(record));
}

template <bool (Stage::*Member)(std::span<const POINT>)> bool OldPlayer::points(RecordReader& record) {
    const std::uint16_t count = record.u16();
    return (stage_.*Member)(record.points16(count));
}

bool OldPlayer::polyPolygon(RecordReader& record) {
    const std::uint16_t figures = record.u16();
    std::vector<std::uint32_t> counts;
    std::size_t sum = 0;
    for (std::uint16_t figure = 0; figure < figures; ++figure) {
        counts.push_back(record.u16());
        sum += counts.back();
    }
    return stage_.polyPolygon(record.points16(sum), counts);
}

bool OldPlayer::roundRect(RecordReader& record) {
    const POINT corner = readOldPoint(record);
    return stage_.roundRect(readOldRect(record), {corner.x, corner.y});
}

template <Stage::Arc Kind> bool OldPlayer::arc(RecordReader& record) {
    const POINT to = readOldPoint(record);
    const POINT from = readOldPoint(record);
    const RECT area = readOldRect(record);
    // Counterclockwise as it is seen: a mapping that mirrors turns the way round.
    const Transform transform = stage_.target().toDevice();
    const bool isMirrored = transform.m11 * transform.m22 - transform.m12 * transform.m21 < 0;
    return stage_.arc(Kind, area, from, to, isMirrored);
}

bool OldPlayer::setPixel(RecordReader& record) {
    const platform::COLORREF color = record.u32();
    // Outside the clipping there is nothing to draw.
    stage_.target().setPixel(readOldPoint(record), color);
    return true;
}

std::span<const OldPlayer::Entry> OldPlayer::shapeRecords() {
    using Type = OldRecord;
    using Player = OldPlayer;
    static const Entry entries[]{
        {Type::moveTo, &Player::point<&Stage::moveTo>},     {Type::lineTo, &Player::point<&Stage::lineTo>},
        {Type::rectangle, &Player::box<&Stage::rectangle>}, {Type::ellipse, &Player::box<&Stage::ellipse>},
        {Type::polygon, &Player::points<&Stage::polygon>},  {Type::polyline, &Player::points<&Stage::polyline>},
        {Type::polyPolygon, &Player::polyPolygon},          {Type::roundRect, &Player::roundRect},
        {Type::arc, &Player::arc<Stage::Arc::open>},        {Type::pie, &Player::arc<Stage::Arc::pie>},
        {Type::chord, &Player::arc<Stage::Arc::chord>},     {Type::setPixel, &Player::setPixel},
    };
    return entries;
}

} // namespace mox::host
