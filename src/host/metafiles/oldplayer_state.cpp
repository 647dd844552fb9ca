#include "host/metafiles/oldplayer.h"

namespace mox::host {

bool OldPlayer::setMapMode(RecordReader& record) {
    return stage_.changeMapping([&](Mapping& mapping) { return mapping.setMode(record.u16()); });
}

template <auto Member> bool OldPlayer::setOrigin(RecordReader& record) {
    return stage_.changeMapping([&](Mapping& mapping) { (mapping.*Member)(readOldPoint(record)); });
}

template <auto Member> bool OldPlayer::setExtent(RecordReader& record) {
    const POINT extent = readOldPoint(record);
    return stage_.changeMapping([&](Mapping& mapping) { (mapping.*Member)({extent.x, extent.y}); });
}

template <auto Member> bool OldPlayer::move(RecordReader& record) {
    const POINT distance = readOldPoint(record);
    return stage_.changeMapping([&](Mapping& mapping) { (mapping.*Member)(distance.x, distance.y); });
}

template <auto Member> bool OldPlayer::scale(RecordReader& record) {
    const std::int32_t denominatorY = record.i16();
    const std::int32_t numeratorY = record.i16();
    const std::int32_t denominatorX = record.i16();
    const std::int32_t numeratorX = record.i16();
    return stage_.changeMapping([&](Mapping& mapping) {
        return (mapping.*Member)({numeratorX, numeratorY}, {denominatorX, denominatorY});
    });
}

template <auto Field, std::int32_t Least, std::int32_t Most> bool OldPlayer::setMode(RecordReader& record) {
    return stage_.setMode<Field, Least, Most>(record.u16());
}

template <auto Field> bool OldPlayer::setColor(RecordReader& record) {
    stage_.state().*Field = record.u32();
    return true;
}

bool OldPlayer::setFillRule(RecordReader& record) {
    stage_.setFillRule(record.u16());
    return true;
}

bool OldPlayer::setTextAlign(RecordReader& record) {
    stage_.state().textAlign = record.u16();
    return true;
}

bool OldPlayer::save(RecordReader&) {
    return stage_.save();
}

bool OldPlayer::restore(RecordReader& record) {
    return stage_.restore(record.i16());
}

bool OldPlayer::intersectClip(RecordReader& record) {
    stage_.intersectClip(readOldRect(record));
    return true;
}

bool OldPlayer::excludeClip(RecordReader& record) {
    stage_.excludeClip(readOldRect(record));
    return true;
}

bool OldPlayer::offsetClip(RecordReader& record) {
    stage_.offsetClip(readOldPoint(record));
    return true;
}

std::span<const OldPlayer::Entry> OldPlayer::stateRecords() {
    using Type = OldRecord;
    using Player = OldPlayer;
    using State = DeviceState;
    static const Entry entries[]{
        {Type::setMapMode, &Player::setMapMode},
        {Type::setWindowOrg, &Player::setOrigin<&Mapping::setWindowOrigin>},
        {Type::setViewportOrg, &Player::setOrigin<&Mapping::setViewportOrigin>},
        {Type::setWindowExt, &Player::setExtent<&Mapping::setWindowExtent>},
        {Type::setViewportExt, &Player::setExtent<&Mapping::setViewportExtent>},
        {Type::offsetWindowOrg, &Player::move<&Mapping::moveWindow>},
        {Type::offsetViewportOrg, &Player::move<&Mapping::moveViewport>},
        {Type::scaleWindowExt, &Player::scale<&Mapping::scaleWindow>},
        {Type::scaleViewportExt, &Player::scale<&Mapping::scaleViewport>},
        {Type::setBkMode, &Player::setMode<&State::bkMode, platform::TRANSPARENT, platform::OPAQUE>},
        {Type::setRop2, &Player::setMode<&State::rop2, platform::R2_BLACK, platform::R2_WHITE>},
        {Type::setStretchBltMode, &Player::setMode<&State::stretchMode, platform::BLACKONWHITE, platform::HALFTONE>},
        {Type::setTextColor, &Player::setColor<&State::textColor>},
        {Type::setBkColor, &Player::setColor<&State::bkColor>},
        {Type::setPolyFillMode, &Player::setFillRule},
        {Type::setTextAlign, &Player::setTextAlign},
        {Type::saveDc, &Player::save},
        {Type::restoreDc, &Player::restore},
        {Type::intersectClipRect, &Player::intersectClip},
        {Type::excludeClipRect, &Player::excludeClip},
        {Type::offsetClipRgn, &Player::offsetClip},
    };
    return entries;
}

} // namespace mox::host
