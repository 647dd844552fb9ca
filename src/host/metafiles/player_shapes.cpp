#include "host/metafiles/enhancedplayer.h"

#include <algorithm>

namespace mox::host {

namespace {

constexpr std::size_t boundsSize = 16;

template <bool IsShort> std::vector<POINT> readPoints(RecordReader& record, std::size_t count) {
    return IsShort ? record.points16(count) : record.points(count);
}

/// Rectangles of shapes hold their last pixels.
RECT readBox(RecordReader& record) {
    const RECT box = record.rect();
    return {std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right) + 1,
            std::max(box.top, box.bottom) + 1};
}

} // namespace

template <EnhancedPlayer::PointsMember Member, bool IsShort> bool EnhancedPlayer::points(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t count = record.u32();
    return (stage_.*Member)(readPoints<IsShort>(record, count));
}

template <EnhancedPlayer::FiguresMember Member, bool IsShort> bool EnhancedPlayer::figures(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t figureCount = record.u32();
    const std::uint32_t pointCount = record.u32();
    const auto counts = record.numbers(figureCount);
    std::size_t left = pointCount;
    for (const std::uint32_t count : counts) {
        if (count > left) {
            throw BrokenRecord();
        }
        left -= count;
    }
    return (stage_.*Member)(readPoints<IsShort>(record, pointCount), counts);
}

template <bool IsShort> bool EnhancedPlayer::polyDraw(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t count = record.u32();
    const auto points = readPoints<IsShort>(record, count);
    return stage_.polyDraw(points, record.take(count));
}

template <bool (Stage::*Member)(POINT)> bool EnhancedPlayer::point(RecordReader& record) {
    return (stage_.*Member)(record.point());
}

template <bool (Stage::*Member)(const RECT&)> bool EnhancedPlayer::box(RecordReader& record) {
    return (stage_.*Member)(readBox(record));
}

bool EnhancedPlayer::roundRect(RecordReader& record) {
    const RECT box = readBox(record);
    return stage_.roundRect(box, record.size32());
}

template <Stage::Arc Kind> bool EnhancedPlayer::arc(RecordReader& record) {
    const RECT box = readBox(record);
    const POINT from = record.point();
    return stage_.arc(Kind, box, from, record.point(), isClockwise_);
}

bool EnhancedPlayer::angleArc(RecordReader& record) {
    const POINT center = record.point();
    const std::uint32_t radius = record.u32();
    const double start = record.real();
    return stage_.angleArc(center, radius, start, record.real());
}

bool EnhancedPlayer::setPixel(RecordReader& record) {
    const POINT place = record.point();
    // Outside the clipping there is nothing to draw.
    stage_.target().setPixel(place, record.u32());
    return true;
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::shapeRecords() {
    using Type = EnhancedRecord;
    using Player = EnhancedPlayer;
    static const Entry entries[]{
        {Type::moveTo, &Player::point<&Stage::moveTo>},
        {Type::lineTo, &Player::point<&Stage::lineTo>},
        {Type::polyline, &Player::points<&Stage::polyline, false>},
        {Type::polyline16, &Player::points<&Stage::polyline, true>},
        {Type::polylineTo, &Player::points<&Stage::polylineTo, false>},
        {Type::polylineTo16, &Player::points<&Stage::polylineTo, true>},
        {Type::polygon, &Player::points<&Stage::polygon, false>},
        {Type::polygon16, &Player::points<&Stage::polygon, true>},
        {Type::polyBezier, &Player::points<&Stage::polyBezier, false>},
        {Type::polyBezier16, &Player::points<&Stage::polyBezier, true>},
        {Type::polyBezierTo, &Player::points<&Stage::polyBezierTo, false>},
        {Type::polyBezierTo16, &Player::points<&Stage::polyBezierTo, true>},
        {Type::polyPolyline, &Player::figures<&Stage::polyPolyline, false>},
        {Type::polyPolyline16, &Player::figures<&Stage::polyPolyline, true>},
        {Type::polyPolygon, &Player::figures<&Stage::polyPolygon, false>},
        {Type::polyPolygon16, &Player::figures<&Stage::polyPolygon, true>},
        {Type::polyDraw, &Player::polyDraw<false>},
        {Type::polyDraw16, &Player::polyDraw<true>},
        {Type::rectangle, &Player::box<&Stage::rectangle>},
        {Type::ellipse, &Player::box<&Stage::ellipse>},
        {Type::roundRect, &Player::roundRect},
        {Type::arc, &Player::arc<Stage::Arc::open>},
        {Type::arcTo, &Player::arc<Stage::Arc::continued>},
        {Type::chord, &Player::arc<Stage::Arc::chord>},
        {Type::pie, &Player::arc<Stage::Arc::pie>},
        {Type::angleArc, &Player::angleArc},
        {Type::setPixel, &Player::setPixel},
    };
    return entries;
}

} // namespace mox::host
