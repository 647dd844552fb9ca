#include "host/metafiles/enhancedplayer.h"

#include <algorithm>
#include <cmath>

namespace mox::host {

namespace {

constexpr std::uint32_t clockwise = 2;

} // namespace

bool EnhancedPlayer::setMapMode(RecordReader& record) {
    return stage_.changeMapping([&](Mapping& mapping) { return mapping.setMode(record.i32()); });
}

template <auto Member> bool EnhancedPlayer::setOrigin(RecordReader& record) {
    return stage_.changeMapping([&](Mapping& mapping) { (mapping.*Member)(record.point()); });
}

template <auto Member> bool EnhancedPlayer::setExtent(RecordReader& record) {
    return stage_.changeMapping([&](Mapping& mapping) { (mapping.*Member)(record.size32()); });
}

template <auto Member> bool EnhancedPlayer::scale(RecordReader& record) {
    const POINT x = record.point();
    const POINT y = record.point();
    return stage_.changeMapping([&](Mapping& mapping) { return (mapping.*Member)({x.x, y.x}, {x.y, y.y}); });
}

bool EnhancedPlayer::setWorld(RecordReader& record) {
    return stage_.changeMapping([&](Mapping& mapping) { mapping.setWorld(record.transform()); });
}

bool EnhancedPlayer::modifyWorld(RecordReader& record) {
    const Transform world = record.transform();
    return stage_.changeMapping([&](Mapping& mapping) { return mapping.modifyWorld(world, record.u32()); });
}

template <auto Field, std::int32_t Least, std::int32_t Most> bool EnhancedPlayer::setMode(RecordReader& record) {
    return stage_.setMode<Field, Least, Most>(record.i32());
}

template <auto Field> bool EnhancedPlayer::setColor(RecordReader& record) {
    stage_.state().*Field = record.u32();
    return true;
}

bool EnhancedPlayer::setFillRule(RecordReader& record) {
    stage_.setFillRule(record.u32());
    return true;
}

bool EnhancedPlayer::setTextAlign(RecordReader& record) {
    stage_.state().textAlign = record.u32();
    return true;
}

bool EnhancedPlayer::setBrushOrigin(RecordReader& record) {
    const POINT origin = record.point();
    const PathPoint place = stage_.base().apply({static_cast<double>(origin.x), static_cast<double>(origin.y)});
    constexpr double most = 1 << 27;
    stage_.state().brushOrigin = {static_cast<std::int32_t>(std::floor(std::clamp(place.x, -most, most) + 0.5)),
                                  static_cast<std::int32_t>(std::floor(std::clamp(place.y, -most, most) + 0.5))};
    return true;
}

bool EnhancedPlayer::setMiterLimit(RecordReader& record) {
    // A floating-point number by its definition, though writers are known that store a whole one.
    const double limit = record.real();
    stage_.state().miterLimit = limit >= 1 && limit <= 1e6 ? limit : 10;
    return true;
}

bool EnhancedPlayer::setArcDirection(RecordReader& record) {
    isClockwise_ = record.u32() == clockwise;
    return true;
}

bool EnhancedPlayer::save(RecordReader&) {
    return stage_.save();
}

bool EnhancedPlayer::restore(RecordReader& record) {
    return stage_.restore(record.i32());
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::stateRecords() {
    using Type = EnhancedRecord;
    using Player = EnhancedPlayer;
    using State = DeviceState;
    static const Entry entries[]{
        {Type::setMapMode, &Player::setMapMode},
        {Type::setWindowOrg, &Player::setOrigin<&Mapping::setWindowOrigin>},
        {Type::setWindowExt, &Player::setExtent<&Mapping::setWindowExtent>},
        {Type::setViewportOrg, &Player::setOrigin<&Mapping::setViewportOrigin>},
        {Type::setViewportExt, &Player::setExtent<&Mapping::setViewportExtent>},
        {Type::scaleWindowExt, &Player::scale<&Mapping::scaleWindow>},
        {Type::scaleViewportExt, &Player::scale<&Mapping::scaleViewport>},
        {Type::setWorldTransform, &Player::setWorld},
        {Type::modifyWorldTransform, &Player::modifyWorld},
        {Type::setBkMode, &Player::setMode<&State::bkMode, platform::TRANSPARENT, platform::OPAQUE>},
        {Type::setRop2, &Player::setMode<&State::rop2, platform::R2_BLACK, platform::R2_WHITE>},
        {Type::setStretchBltMode, &Player::setMode<&State::stretchMode, platform::BLACKONWHITE, platform::HALFTONE>},
        {Type::setTextColor, &Player::setColor<&State::textColor>},
        {Type::setBkColor, &Player::setColor<&State::bkColor>},
        {Type::setPolyFillMode, &Player::setFillRule},
        {Type::setTextAlign, &Player::setTextAlign},
        {Type::setBrushOrg, &Player::setBrushOrigin},
        {Type::setMiterLimit, &Player::setMiterLimit},
        {Type::setArcDirection, &Player::setArcDirection},
        {Type::saveDc, &Player::save},
        {Type::restoreDc, &Player::restore},
    };
    return entries;
}

} // namespace mox::host
