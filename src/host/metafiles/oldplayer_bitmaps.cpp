#include "host/metafiles/oldplayer.h"
#include "host/metafiles/packeddib.h"
#include "host/pixels/rasteroperation.h"

#include <algorithm>

namespace mox::host {

namespace {

/// As `readOldRect`, a place and its size.
SignedRect readOldArea(RecordReader& record) {
    const POINT extent = readOldPoint(record);
    const POINT place = readOldPoint(record);
    return {place.x, place.y, extent.x, extent.y};
}

/// The bitmap that the rest of the record holds.
template <bool IsDib> std::shared_ptr<Bitmap> readSource(RecordReader& record) {
    return IsDib ? readPackedDib(record.take(record.left())) : readOldBitmap(record, 0);
}

} // namespace

std::shared_ptr<Bitmap> readOldBitmap(RecordReader& record, std::size_t unusedFields) {
    record.skip(2);
    const std::int32_t width = record.i16();
    const std::int32_t height = record.i16();
    record.skip(3);
    const std::uint8_t bitsPerPixel = record.u8();
    record.skip(unusedFields);
    BitmapFormat format{.width = width, .height = height, .bitsPerPixel = bitsPerPixel};
    if (bitsPerPixel == 16) {
        format.masks = masks565;
    }
    const std::size_t rowBits = static_cast<std::size_t>(std::max(0, width)) * bitsPerPixel;
    const std::size_t size = (rowBits + 15) / 16 * 2 * static_cast<std::size_t>(std::max(0, height));
    if (bitsPerPixel == 4 || bitsPerPixel == 8 || size > record.left()) {
        // Colours of a palette that nobody knows any more, or too few bytes.
        return nullptr;
    }
    auto bitmap = Bitmap::create(std::move(format));
    if (bitmap) {
        std::ranges::copy(record.take(size), bitmap->bytes().begin());
    }
    return bitmap;
}

bool OldPlayer::copyBitmap(const SignedRect& target, const std::shared_ptr<Bitmap>& source, const SignedRect& from,
                           std::uint32_t rop) {
    DeviceContext& context = stage_.target();
    if (!usesSource(rop)) {
        return context.bitBlt(target, nullptr, {}, rop);
    }
    return source && context.drawBitmap(target, source, from, rop);
}

bool OldPlayer::patBlt(RecordReader& record) {
    const std::uint32_t rop = record.u32();
    return copyBitmap(readOldArea(record), nullptr, {}, rop);
}

template <bool IsDib> bool OldPlayer::bitBlt(RecordReader& record) {
    // Without a bitmap there is a word more, and that is all.
    constexpr std::size_t sizeWithoutBitmap = 18;
    const bool hasBitmap = record.size() > sizeWithoutBitmap;
    const std::uint32_t rop = record.u32();
    const POINT from = readOldPoint(record);
    record.skip(hasBitmap ? 0 : 2);
    const SignedRect target = readOldArea(record);
    const auto source = hasBitmap ? readSource<IsDib>(record) : nullptr;
    return copyBitmap(target, source, {from.x, from.y, target.cx, target.cy}, rop);
}

template <bool IsDib> bool OldPlayer::stretchBlt(RecordReader& record) {
    constexpr std::size_t sizeWithoutBitmap = 22;
    const bool hasBitmap = record.size() > sizeWithoutBitmap;
    const std::uint32_t rop = record.u32();
    const SignedRect from = readOldArea(record);
    record.skip(hasBitmap ? 0 : 2);
    const SignedRect target = readOldArea(record);
    const auto source = hasBitmap ? readSource<IsDib>(record) : nullptr;
    return copyBitmap(target, source, from, rop);
}

bool OldPlayer::stretchDib(RecordReader& record) {
    const std::uint32_t rop = record.u32();
    const bool usesPalette = record.u16() == 1;
    const SignedRect from = readOldArea(record);
    const SignedRect target = readOldArea(record);
    const auto source = record.left() == 0 ? nullptr : readPackedDib(record.take(record.left()), usesPalette);
    return copyBitmap(target, source, source ? fromTop(from, *source) : from, rop);
}

bool OldPlayer::setDibToDevice(RecordReader& record) {
    const bool usesPalette = record.u16() == 1;
    record.skip(2);
    const std::uint16_t firstRow = record.u16();
    const POINT from = readOldPoint(record);
    const SignedRect target = readOldArea(record);
    const auto source = readPackedDib(record.take(record.left()), usesPalette);
    return source &&
           copyBitmap(target, source, fromTop({from.x, from.y - firstRow, target.cx, target.cy}, *source), platform::SRCCOPY);
}

std::span<const OldPlayer::Entry> OldPlayer::bitmapRecords() {
    using Type = OldRecord;
    using Player = OldPlayer;
    static const Entry entries[]{
        {Type::patBlt, &Player::patBlt},
        {Type::bitBlt, &Player::bitBlt<false>},
        {Type::dibBitBlt, &Player::bitBlt<true>},
        {Type::stretchBlt, &Player::stretchBlt<false>},
        {Type::dibStretchBlt, &Player::stretchBlt<true>},
        {Type::stretchDib, &Player::stretchDib},
        {Type::setDibToDevice, &Player::setDibToDevice},
    };
    return entries;
}

} // namespace mox::host
