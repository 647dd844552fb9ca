#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/regiondata.h"

#include <algorithm>
#include <cmath>

namespace mox::host {

namespace {

constexpr std::size_t boundsSize = 16;
/// More pixels than a frame is ever wide.
constexpr std::int32_t mostFrame = 1 << 20;

std::int32_t framePixels(double length) {
    return static_cast<std::int32_t>(std::lround(std::clamp(std::abs(length), 1.0, static_cast<double>(mostFrame))));
}

} // namespace

bool EnhancedPlayer::intersectClip(RecordReader& record) {
    stage_.intersectClip(record.rect());
    return true;
}

bool EnhancedPlayer::excludeClip(RecordReader& record) {
    stage_.excludeClip(record.rect());
    return true;
}

bool EnhancedPlayer::offsetClip(RecordReader& record) {
    stage_.offsetClip(record.point());
    return true;
}

bool EnhancedPlayer::keepClip(RecordReader&) {
    stage_.keepClip();
    return true;
}

bool EnhancedPlayer::selectClipRegion(RecordReader& record) {
    const std::uint32_t size = record.u32();
    const std::uint32_t mode = record.u32();
    if (size == 0) {
        stage_.resetClip();
        return mode == RGN_COPY;
    }
    // Clipping is in units of the reference device.
    auto areas = readRegion(record.take(size));
    const auto place = [](double value) {
        constexpr double most = 1 << 27;
        return static_cast<std::int32_t>(std::floor(std::clamp(value, -most, most) + 0.5));
    };
    for (RECT& area : areas) {
        const PathPoint first = stage_.base().apply({static_cast<double>(area.left), static_cast<double>(area.top)});
        const PathPoint second = stage_.base().apply({static_cast<double>(area.right), static_cast<double>(area.bottom)});
        area = {place(std::min(first.x, second.x)), place(std::min(first.y, second.y)), place(std::max(first.x, second.x)),
                place(std::max(first.y, second.y))};
    }
    return stage_.combineClip(united(areas), mode);
}

bool EnhancedPlayer::fillAreas(std::span<const RECT> areas, const Brush& brush) {
    bool isDrawn = true;
    for (const RECT& area : areas) {
        isDrawn = stage_.target().fillRect(area, brush) && isDrawn;
    }
    return isDrawn;
}

bool EnhancedPlayer::fillRegion(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t size = record.u32();
    const auto brush = objects_.get<Brush>(record.u32());
    const auto areas = readRegion(record.take(size));
    return brush && fillAreas(areas, *brush);
}

bool EnhancedPlayer::paintRegion(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t size = record.u32();
    const auto areas = readRegion(record.take(size));
    // Kept: recording may put another one in its place.
    const auto brush = stage_.state().brush.object;
    return fillAreas(areas, *brush);
}

bool EnhancedPlayer::invertRegion(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t size = record.u32();
    bool isDrawn = true;
    for (const RECT& area : readRegion(record.take(size))) {
        const SignedRect target{area.left, area.top, area.right - area.left, area.bottom - area.top};
        isDrawn = stage_.target().bitBlt(target, nullptr, {}, platform::DSTINVERT) && isDrawn;
    }
    return isDrawn;
}

bool EnhancedPlayer::frameRegion(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t size = record.u32();
    const auto brush = objects_.get<Brush>(record.u32());
    const SIZE extent = record.size32();
    std::vector<RECT> areas = readRegion(record.take(size));
    for (RECT& area : areas) {
        area = stage_.toPixels(area).bounds();
    }
    if (!brush) {
        return false;
    }
    const Transform transform = stage_.target().toDevice();
    const Region frame = frameOf(united(areas), framePixels(extent.cx * transform.m11), framePixels(extent.cy * transform.m22));
    areas.clear();
    for (const auto& box : frame.boxes()) {
        areas.push_back({box.x1, box.y1, box.x2, box.y2});
    }
    const Stage::InPixels inPixels(stage_);
    return fillAreas(areas, *brush);
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::regionRecords() {
    using Type = EnhancedRecord;
    using Player = EnhancedPlayer;
    static const Entry entries[]{
        {Type::intersectClipRect, &Player::intersectClip},
        {Type::excludeClipRect, &Player::excludeClip},
        {Type::offsetClipRgn, &Player::offsetClip},
        {Type::setMetaRgn, &Player::keepClip},
        {Type::extSelectClipRgn, &Player::selectClipRegion},
        {Type::fillRgn, &Player::fillRegion},
        {Type::paintRgn, &Player::paintRegion},
        {Type::invertRgn, &Player::invertRegion},
        {Type::frameRgn, &Player::frameRegion},
    };
    return entries;
}

} // namespace mox::host
