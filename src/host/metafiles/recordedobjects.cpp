#include "host/metafiles/recordedobjects.h"

#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/fontrecord.h"
#include "host/metafiles/packeddib.h"

#include <algorithm>
#include <limits>

namespace mox::host {

namespace {

RecordWriter begin(EnhancedRecord type) {
    return RecordWriter(static_cast<std::uint32_t>(type));
}

constexpr std::uint32_t geometricFlag = 0x10000;

} // namespace

template <class Object> bool RecordedObjects::selectStock(const Selected<Object>& selected) {
    for (std::int32_t index = platform::WHITE_BRUSH; index <= platform::DEFAULT_GUI_FONT; ++index) {
        const platform::Handle handle = graphics_.stockObject(index);
        if (handle != 0 && handle == selected.handle) {
            output_(begin(EnhancedRecord::selectObject).u32(stockObjectFlag | static_cast<std::uint32_t>(index)).finish());
            return true;
        }
    }
    return false;
}

template <class Make> void RecordedObjects::selectMade(Kind kind, std::shared_ptr<const void> object, Make make) {
    selected_[kind] = object;
    const auto known = std::ranges::find(entries_, object, &Entry::object);
    std::size_t index = static_cast<std::size_t>(known - entries_.begin());
    if (known == entries_.end()) {
        index = placeFor(object);
        make(static_cast<std::uint32_t>(index + 1));
    }
    entries_[index].lastUse = ++uses_;
    output_(begin(EnhancedRecord::selectObject).u32(index + 1).finish());
}

std::size_t RecordedObjects::placeFor(const std::shared_ptr<const void>& object) {
    if (entries_.size() < most) {
        entries_.push_back({object, 0});
        return entries_.size() - 1;
    }
    const auto age = [&](const Entry& entry) {
        const bool isSelected = std::ranges::find(selected_, entry.object) != selected_.end();
        return isSelected ? std::numeric_limits<std::uint64_t>::max() : entry.lastUse;
    };
    const auto oldest = std::ranges::min_element(entries_, {}, age);
    const auto index = static_cast<std::size_t>(oldest - entries_.begin());
    output_(begin(EnhancedRecord::deleteObject).u32(index + 1).finish());
    oldest->object = object;
    return index;
}

void RecordedObjects::select(const Selected<Pen>& selected) {
    if (!selectStock(selected)) {
        selectMade(pen, selected.object, [&](std::uint32_t place) { writePen(place, *selected.object); });
    }
}

void RecordedObjects::select(const Selected<Brush>& selected) {
    if (!selectStock(selected)) {
        selectMade(brush, selected.object, [&](std::uint32_t place) { writeBrush(place, *selected.object); });
    }
}

void RecordedObjects::select(const Selected<Font>& selected) {
    if (!selectStock(selected)) {
        selectMade(font, selected.object, [&](std::uint32_t place) {
            RecordWriter record = begin(EnhancedRecord::createFont);
            record.u32(place);
            writeFont(record, *selected.object, codePage_);
            output_(record.finish());
        });
    }
}

void RecordedObjects::writePen(std::uint32_t place, const Pen& made) {
    const auto style = static_cast<std::uint32_t>(made.style);
    if (made.endCap == 0 && made.join == 0) {
        output_(begin(EnhancedRecord::createPen).u32(place).u32(style).point({made.width, 0}).u32(made.color).finish());
        return;
    }
    RecordWriter record = begin(EnhancedRecord::extCreatePen);
    record.u32(place).zeros(16).u32(style | made.endCap | made.join | geometricFlag).i32(made.width);
    output_(record.u32(platform::BS_SOLID).u32(made.color).zeros(8).finish());
}

void RecordedObjects::writeBrush(std::uint32_t place, const Brush& made) {
    if (made.style != platform::BS_PATTERN || !made.pattern) {
        output_(begin(EnhancedRecord::createBrush).u32(place).u32(made.style).u32(made.color).i32(made.hatch).finish());
        return;
    }
    const Bitmap& pattern = *made.pattern;
    const PackedDib dib = writeDib(pattern, pattern.bounds(), 0, 0xFFFFFF);
    RecordWriter record = begin(pattern.isMonochrome() ? EnhancedRecord::createMonoBrush : EnhancedRecord::createDibPatternBrush);
    constexpr std::size_t fieldsEnd = 32;
    record.u32(place).u32(platform::DIB_RGB_COLORS).u32(fieldsEnd).u32(dib.info.size());
    record.u32(fieldsEnd + dib.info.size()).u32(dib.bits.size());
    output_(record.bytes(dib.info).bytes(dib.bits).finish());
}

void RecordedObjects::removeAll() {
    if (entries_.empty()) {
        return;
    }
    for (const std::int32_t index : {platform::WHITE_BRUSH, platform::BLACK_PEN, platform::SYSTEM_FONT}) {
        output_(begin(EnhancedRecord::selectObject).u32(stockObjectFlag | static_cast<std::uint32_t>(index)).finish());
    }
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        output_(begin(EnhancedRecord::deleteObject).u32(index + 1).finish());
    }
}

} // namespace mox::host
