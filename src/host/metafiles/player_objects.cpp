#include "host/graphics/graphics.h"
#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/fontrecord.h"
#include "host/metafiles/packeddib.h"

#include <cmath>
#include <cstdlib>

namespace mox::host {

namespace {

constexpr std::uint32_t styleMask = 0xF;
constexpr std::uint32_t endCapMask = 0xF00;
constexpr std::uint32_t joinMask = 0xF000;
constexpr std::uint32_t geometricFlag = 0x10000;
constexpr std::int32_t lastHatch = 5;
constexpr std::uint32_t paletteColors = 1;

/// An unknown style counts as solid.
std::int32_t penStyle(std::uint32_t style) {
    const auto known = static_cast<std::int32_t>(style & styleMask);
    return known <= platform::PS_INSIDEFRAME ? known : platform::PS_SOLID;
}

} // namespace

bool EnhancedPlayer::createPen(RecordReader& record) {
    const std::uint32_t place = record.u32();
    const std::uint32_t style = record.u32();
    const std::int32_t width = std::abs(record.point().x);
    const platform::COLORREF color = record.u32();
    return objects_.set(place, std::make_shared<const Pen>(Pen{.style = penStyle(style), .width = width, .color = color}));
}

bool EnhancedPlayer::createExtendedPen(RecordReader& record) {
    const std::uint32_t place = record.u32();
    record.skip(16);
    const std::uint32_t style = record.u32();
    const std::uint32_t width = std::min<std::uint32_t>(record.u32(), 1 << 27);
    record.skip(4);
    Pen pen{.style = penStyle(style), .color = record.u32()};
    // Cosmetic pens are one pixel wide.
    pen.width = (style & geometricFlag) != 0 ? static_cast<std::int32_t>(width) : 0;
    pen.endCap = style & endCapMask;
    pen.join = style & joinMask;
    return objects_.set(place, std::make_shared<const Pen>(pen));
}

bool EnhancedPlayer::createBrush(RecordReader& record) {
    const std::uint32_t place = record.u32();
    Brush brush{.style = record.u32()};
    brush.color = record.u32();
    brush.hatch = record.i32();
    if (brush.style > platform::BS_HATCHED) {
        throw BrokenRecord();
    }
    brush.hatch = brush.hatch < 0 || brush.hatch > lastHatch ? 0 : brush.hatch;
    return objects_.set(place, std::make_shared<const Brush>(std::move(brush)));
}

template <bool IsMonochrome> bool EnhancedPlayer::createPatternBrush(RecordReader& record) {
    const std::uint32_t place = record.u32();
    const bool usesPalette = record.u32() == paletteColors;
    auto pattern = readBitmap(record, usesPalette);
    if (!pattern) {
        throw BrokenRecord();
    }
    if (IsMonochrome) {
        pattern = toMonochrome(*pattern);
    }
    if (!pattern || pattern->bytes().size() > patternBytes_) {
        return false;
    }
    patternBytes_ -= pattern->bytes().size();
    return objects_.set(place,
                        std::make_shared<const Brush>(Brush{.style = platform::BS_PATTERN, .pattern = std::move(pattern)}));
}

bool EnhancedPlayer::createFont(RecordReader& record) {
    const std::uint32_t place = record.u32();
    return objects_.set(place, std::make_shared<const Font>(readFont(record, codePage_)));
}

bool EnhancedPlayer::createPalette(RecordReader& record) {
    return objects_.set(record.u32(), ObjectTable::Other());
}

bool EnhancedPlayer::selectObject(RecordReader& record) {
    const std::uint32_t place = record.u32();
    if ((place & stockObjectFlag) == 0) {
        return objects_.select(place, stage_.state());
    }
    const auto index = static_cast<std::int32_t>(place & ~stockObjectFlag);
    if (index == platform::DEFAULT_PALETTE) {
        return true;
    }
    Graphics& graphics = stage_.target().graphics();
    const platform::Handle handle = graphics.stockObject(index);
    DeviceState& state = stage_.state();
    if (auto pen = graphics.object<Pen>(handle)) {
        state.pen = {handle, std::move(pen)};
    } else if (auto brush = graphics.object<Brush>(handle)) {
        state.brush = {handle, std::move(brush)};
    } else if (auto font = graphics.object<Font>(handle)) {
        state.font = {handle, std::move(font)};
    } else {
        return false;
    }
    return true;
}

bool EnhancedPlayer::deleteObject(RecordReader& record) {
    return objects_.remove(record.u32());
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::objectRecords() {
    using Type = EnhancedRecord;
    using Player = EnhancedPlayer;
    static const Entry entries[]{
        {Type::createPen, &Player::createPen},
        {Type::extCreatePen, &Player::createExtendedPen},
        {Type::createBrush, &Player::createBrush},
        {Type::createMonoBrush, &Player::createPatternBrush<true>},
        {Type::createDibPatternBrush, &Player::createPatternBrush<false>},
        {Type::createFont, &Player::createFont},
        {Type::createPalette, &Player::createPalette},
        {Type::selectObject, &Player::selectObject},
        {Type::deleteObject, &Player::deleteObject},
    };
    return entries;
}

} // namespace mox::host
