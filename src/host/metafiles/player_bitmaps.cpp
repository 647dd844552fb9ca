#include "host/graphics/rastercanvas.h"
#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/packeddib.h"
#include "host/pixels/rasteroperation.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mox::host {

namespace {

constexpr std::size_t boundsSize = 16;
constexpr std::uint32_t paletteColors = 1;

SignedRect readArea(RecordReader& record) {
    const POINT place = record.point();
    const SIZE extent = record.size32();
    return {place.x, place.y, extent.cx, extent.cy};
}

/// To pixels of the bitmap.
SignedRect placed(const SignedRect& area, const Transform& transform) {
    const auto whole = [](double value) {
        constexpr double most = 1 << 27;
        return static_cast<std::int32_t>(std::floor(std::clamp(value, -most, most) + 0.5));
    };
    const PathPoint first = transform.apply({static_cast<double>(area.x), static_cast<double>(area.y)});
    const PathPoint second = transform.apply({static_cast<double>(area.x) + area.cx, static_cast<double>(area.y) + area.cy});
    return {whole(first.x), whole(first.y), whole(second.x) - whole(first.x), whole(second.y) - whole(first.y)};
}

/// A memory context with the bitmap, as that of `like`.
DeviceContext contextOf(std::shared_ptr<Bitmap> bitmap, const DeviceContext& like) {
    return DeviceContext(like.graphics(), DeviceContext::Kind::memory, like.sharedDevice(),
                         std::make_shared<RasterCanvas>(std::move(bitmap)));
}

} // namespace

std::shared_ptr<Bitmap> EnhancedPlayer::readBitmap(RecordReader& record, bool usesPalette) {
    const std::uint32_t infoOffset = record.u32();
    const std::uint32_t infoSize = record.u32();
    const std::uint32_t bitsOffset = record.u32();
    const std::uint32_t bitsSize = record.u32();
    if (infoSize == 0) {
        return nullptr;
    }
    auto bitmap = readDib(record.part(infoOffset, infoSize), record.part(bitsOffset, bitsSize), usesPalette);
    if (!bitmap) {
        throw BrokenRecord();
    }
    return bitmap;
}

EnhancedPlayer::Source EnhancedPlayer::readSource(RecordReader& record) {
    Source source;
    source.transform = record.transform();
    source.backColor = record.u32();
    const bool usesPalette = record.u32() == paletteColors;
    source.bitmap = readBitmap(record, usesPalette);
    return source;
}

bool EnhancedPlayer::copyBitmap(const SignedRect& target, const Source& source, const SignedRect& from, std::uint32_t rop) {
    DeviceContext& context = stage_.target();
    if (!usesSource(rop)) {
        return context.bitBlt(target, nullptr, {}, rop);
    }
    return source.bitmap && context.drawBitmap(target, source.bitmap, placed(from, source.transform), rop);
}

bool EnhancedPlayer::bitBlt(RecordReader& record) {
    record.skip(boundsSize);
    const SignedRect target = readArea(record);
    const std::uint32_t rop = record.u32();
    const POINT from = record.point();
    const Source source = readSource(record);
    return copyBitmap(target, source, {from.x, from.y, target.cx, target.cy}, rop);
}

bool EnhancedPlayer::stretchBlt(RecordReader& record) {
    record.skip(boundsSize);
    const SignedRect target = readArea(record);
    const std::uint32_t rop = record.u32();
    const POINT from = record.point();
    const Source source = readSource(record);
    const SIZE extent = record.size32();
    return copyBitmap(target, source, {from.x, from.y, extent.cx, extent.cy}, rop);
}

bool EnhancedPlayer::plgBlt(RecordReader& record) {
    record.skip(boundsSize);
    const POINT first = record.point();
    const POINT second = record.point();
    const POINT third = record.point();
    const SignedRect from = readArea(record);
    const Source source = readSource(record);
    // Only rectangles along the axes; others are not drawn.
    if (first.y != second.y || first.x != third.x) {
        return false;
    }
    return copyBitmap({first.x, first.y, second.x - first.x, third.y - first.y}, source, from, platform::SRCCOPY);
}

bool EnhancedPlayer::setDibitsToDevice(RecordReader& record) {
    record.skip(boundsSize);
    const POINT to = record.point();
    const SignedRect from = readArea(record);
    const std::uint32_t infoOffset = record.u32();
    const std::uint32_t infoSize = record.u32();
    const std::uint32_t bitsOffset = record.u32();
    const std::uint32_t bitsSize = record.u32();
    const bool usesPalette = record.u32() == paletteColors;
    const std::uint32_t firstRow = record.u32();
    const std::uint32_t rowCount = record.u32();
    const auto bitmap = readDibRows(record.part(infoOffset, infoSize), record.part(bitsOffset, bitsSize), rowCount, usesPalette);
    constexpr std::uint32_t mostRows = 1 << 20;
    if (!bitmap || firstRow > mostRows) {
        throw BrokenRecord();
    }
    // What is there of the rows, counted from the bottom; the rest is not drawn.
    const SignedRect area = fromTop({from.x, from.y - static_cast<std::int32_t>(firstRow), from.cx, from.cy}, *bitmap);
    return stage_.target().drawBitmap({to.x, to.y, from.cx, from.cy}, bitmap, area, platform::SRCCOPY);
}

bool EnhancedPlayer::stretchDibits(RecordReader& record) {
    record.skip(boundsSize);
    const POINT to = record.point();
    const SignedRect from = readArea(record);
    const std::size_t description = record.place();
    record.skip(16);
    const bool usesPalette = record.u32() == paletteColors;
    const std::uint32_t rop = record.u32();
    const SIZE extent = record.size32();
    record.seek(description);
    Source source;
    source.bitmap = readBitmap(record, usesPalette);
    return copyBitmap({to.x, to.y, extent.cx, extent.cy}, source, source.bitmap ? fromTop(from, *source.bitmap) : from, rop);
}

bool EnhancedPlayer::alphaBlend(RecordReader& record) {
    record.skip(boundsSize);
    const SignedRect target = readArea(record);
    platform::BLENDFUNCTION blend;
    blend.BlendOp = record.u8();
    blend.BlendFlags = record.u8();
    blend.SourceConstantAlpha = record.u8();
    blend.AlphaFormat = record.u8();
    const POINT from = record.point();
    const Source source = readSource(record);
    const SIZE extent = record.size32();
    if (!source.bitmap) {
        return false;
    }
    DeviceContext& context = stage_.target();
    const DeviceContext memory = contextOf(source.bitmap, context);
    return context.alphaBlend(target, memory, placed({from.x, from.y, extent.cx, extent.cy}, source.transform), blend);
}

bool EnhancedPlayer::transparentBlt(RecordReader& record) {
    record.skip(boundsSize);
    const SignedRect target = readArea(record);
    const platform::COLORREF transparent = record.u32();
    const POINT from = record.point();
    const Source source = readSource(record);
    const SIZE extent = record.size32();
    if (!source.bitmap) {
        return false;
    }
    DeviceContext& context = stage_.target();
    const DeviceContext memory = contextOf(source.bitmap, context);
    return context.transparentBlt(target, memory, placed({from.x, from.y, extent.cx, extent.cy}, source.transform), transparent);
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::bitmapRecords() {
    using Type = EnhancedRecord;
    using Player = EnhancedPlayer;
    static const Entry entries[]{
        {Type::bitBlt, &Player::bitBlt},
        {Type::stretchBlt, &Player::stretchBlt},
        {Type::maskBlt, &Player::maskBlt},
        {Type::plgBlt, &Player::plgBlt},
        {Type::setDibitsToDevice, &Player::setDibitsToDevice},
        {Type::stretchDibits, &Player::stretchDibits},
        {Type::alphaBlend, &Player::alphaBlend},
        {Type::transparentBlt, &Player::transparentBlt},
    };
    return entries;
}

} // namespace mox::host
