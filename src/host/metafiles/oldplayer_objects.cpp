#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/oldplayer.h"
#include "host/metafiles/packeddib.h"
#include "host/metafiles/regiondata.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace mox::host {

namespace {

constexpr std::int32_t lastHatch = 5;

} // namespace

bool OldPlayer::createPen(RecordReader& record) {
    const std::int32_t style = record.u16() & 0xF;
    Pen pen{.style = style <= platform::PS_INSIDEFRAME ? style : platform::PS_SOLID};
    pen.width = std::abs(record.point16().x);
    pen.color = record.u32();
    return objects_.add(std::make_shared<const Pen>(pen));
}

bool OldPlayer::createBrush(RecordReader& record) {
    Brush brush{.style = record.u16()};
    brush.color = record.u32();
    brush.hatch = record.u16();
    if (brush.style > platform::BS_HATCHED) {
        throw BrokenRecord();
    }
    brush.hatch = brush.hatch > lastHatch ? 0 : brush.hatch;
    return objects_.add(std::make_shared<const Brush>(std::move(brush)));
}

bool OldPlayer::createFont(RecordReader& record) {
    Font font;
    platform::LOGFONTA& description = font.description;
    for (std::int32_t* const field : {&description.lfHeight, &description.lfWidth, &description.lfEscapement,
                                      &description.lfOrientation, &description.lfWeight}) {
        *field = record.i16();
    }
    for (std::uint8_t* const field :
         {&description.lfItalic, &description.lfUnderline, &description.lfStrikeOut, &description.lfCharSet,
          &description.lfOutPrecision, &description.lfClipPrecision, &description.lfQuality, &description.lfPitchAndFamily}) {
        *field = record.u8();
    }
    // The record ends with the name.
    const std::string face = record.text(std::min(record.left(), description.lfFaceName.size() - 1));
    std::copy_n(face.begin(), std::min(face.find('\0'), face.size()), description.lfFaceName.begin());
    return objects_.add(std::make_shared<const Font>(font));
}

bool OldPlayer::addPattern(std::shared_ptr<Bitmap> pattern) {
    if (!pattern) {
        throw BrokenRecord();
    }
    if (pattern->bytes().size() > patternBytes_) {
        return false;
    }
    patternBytes_ -= pattern->bytes().size();
    return objects_.add(std::make_shared<const Brush>(Brush{.style = platform::BS_PATTERN, .pattern = std::move(pattern)}));
}

bool OldPlayer::createDibPatternBrush(RecordReader& record) {
    const std::uint16_t style = record.u16();
    const bool usesPalette = record.u16() == 1;
    auto pattern = readPackedDib(record.take(record.left()), usesPalette);
    if (pattern && style == platform::BS_PATTERN && pattern->bitsPerPixel() == 1) {
        pattern = toMonochrome(*pattern);
    }
    return addPattern(std::move(pattern));
}

bool OldPlayer::createPatternBrush(RecordReader& record) {
    // The description ends with fields that only memory needs.
    constexpr std::size_t unusedFields = 22;
    return addPattern(readOldBitmap(record, unusedFields));
}

bool OldPlayer::createPalette(RecordReader&) {
    return objects_.add(ObjectTable::Other());
}

bool OldPlayer::createRegion(RecordReader& record) {
    constexpr std::size_t unusedFields = 10;
    record.skip(unusedFields);
    const std::uint16_t scans = record.u16();
    record.skip(10);
    std::vector<RECT> areas;
    for (std::uint16_t scan = 0; scan < scans; ++scan) {
        const std::uint16_t count = record.u16();
        const std::int32_t top = record.i16();
        const std::int32_t bottom = record.i16();
        for (std::uint16_t place = 0; place + 1 < count; place = static_cast<std::uint16_t>(place + 2)) {
            const std::int32_t left = record.i16();
            areas.push_back({left, top, record.i16(), bottom});
        }
        record.skip(2);
    }
    return objects_.add(std::make_shared<const Region>(united(areas)));
}

bool OldPlayer::selectObject(RecordReader& record) {
    const std::uint16_t place = record.u16();
    if (const auto region = objects_.get<Region>(place)) {
        return stage_.combineClip(*region, RGN_COPY);
    }
    return objects_.select(place, stage_.state());
}

bool OldPlayer::deleteObject(RecordReader& record) {
    return objects_.remove(record.u16());
}

bool OldPlayer::selectClipRegion(RecordReader& record) {
    const std::uint16_t place = record.u16();
    const auto region = objects_.get<Region>(place);
    if (!region) {
        stage_.resetClip();
        return place == 0;
    }
    return stage_.combineClip(*region, RGN_COPY);
}

bool OldPlayer::fillAreas(const Region& region, const Brush& brush) {
    bool isDrawn = true;
    for (const auto& box : region.boxes()) {
        isDrawn = stage_.target().fillRect({box.x1, box.y1, box.x2, box.y2}, brush) && isDrawn;
    }
    return isDrawn;
}

bool OldPlayer::fillRegion(RecordReader& record) {
    const auto region = objects_.get<Region>(record.u16());
    const auto brush = objects_.get<Brush>(record.u16());
    return region && brush && fillAreas(*region, *brush);
}

bool OldPlayer::paintRegion(RecordReader& record) {
    const auto region = objects_.get<Region>(record.u16());
    const auto brush = stage_.state().brush.object;
    return region && fillAreas(*region, *brush);
}

bool OldPlayer::frameRegion(RecordReader& record) {
    const auto region = objects_.get<Region>(record.u16());
    const auto brush = objects_.get<Brush>(record.u16());
    const POINT extent = readOldPoint(record);
    const std::int32_t width = std::max(1, std::abs(extent.x));
    return region && brush && fillAreas(frameOf(*region, width, std::max(1, std::abs(extent.y))), *brush);
}

bool OldPlayer::invertRegion(RecordReader& record) {
    const auto region = objects_.get<Region>(record.u16());
    bool isDrawn = region != nullptr;
    for (const auto& box : isDrawn ? region->boxes() : std::span<const pixman_box32_t>()) {
        isDrawn = stage_.target().bitBlt({box.x1, box.y1, box.x2 - box.x1, box.y2 - box.y1}, nullptr, {}, platform::DSTINVERT) &&
                  isDrawn;
    }
    return isDrawn;
}

std::span<const OldPlayer::Entry> OldPlayer::objectRecords() {
    using Type = OldRecord;
    using Player = OldPlayer;
    static const Entry entries[]{
        {Type::createPen, &Player::createPen},
        {Type::createBrush, &Player::createBrush},
        {Type::createFont, &Player::createFont},
        {Type::dibCreatePatternBrush, &Player::createDibPatternBrush},
        {Type::createPatternBrush, &Player::createPatternBrush},
        {Type::createPalette, &Player::createPalette},
        {Type::createRegion, &Player::createRegion},
        {Type::selectObject, &Player::selectObject},
        {Type::deleteObject, &Player::deleteObject},
        {Type::selectClipRegion, &Player::selectClipRegion},
        {Type::fillRegion, &Player::fillRegion},
        {Type::paintRegion, &Player::paintRegion},
        {Type::frameRegion, &Player::frameRegion},
        {Type::invertRegion, &Player::invertRegion},
    };
    return entries;
}

} // namespace mox::host
