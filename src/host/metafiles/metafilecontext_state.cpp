#include "host/metafiles/metafilecontext.h"
#include "host/metafiles/regiondata.h"

#include <algorithm>
#include <bit>

namespace mox::host {

namespace {

constexpr std::uint32_t alternate = 1;
constexpr std::uint32_t winding = 2;

bool areEqual(const std::optional<Region>& a, const std::optional<Region>& b) {
    return a.has_value() == b.has_value() &&
           (!a || std::ranges::equal(a->boxes(), b->boxes(), [](const pixman_box32_t& one, const pixman_box32_t& other) {
               return one.x1 == other.x1 && one.y1 == other.y1 && one.x2 == other.x2 && one.y2 == other.y2;
           }));
}

} // namespace

/// True if it has to be recorded, and counts as recorded from then on.
template <class Value> bool MetafileContext::isChanged(Value DeviceState::*field) {
    if (recorded_.*field == state().*field) {
        return false;
    }
    recorded_.*field = state().*field;
    return true;
}

void MetafileContext::syncState() {
    syncModes();
    syncObjects();
    syncMapping();
    syncClip();
}

void MetafileContext::syncModes() {
    using State = DeviceState;
    const auto number = [&](EnhancedRecord type, auto State::*field) {
        if (isChanged(field)) {
            write(begin(type).u32(static_cast<std::uint32_t>(state().*field)));
        }
    };
    number(EnhancedRecord::setRop2, &State::rop2);
    number(EnhancedRecord::setBkMode, &State::bkMode);
    number(EnhancedRecord::setStretchBltMode, &State::stretchMode);
    number(EnhancedRecord::setTextColor, &State::textColor);
    number(EnhancedRecord::setBkColor, &State::bkColor);
    number(EnhancedRecord::setTextAlign, &State::textAlign);
    if (isChanged(&State::fillRule)) {
        write(begin(EnhancedRecord::setPolyFillMode).u32(state().fillRule == FillRule::winding ? winding : alternate));
    }
    if (isChanged(&State::brushOrigin)) {
        write(begin(EnhancedRecord::setBrushOrg).point(state().brushOrigin));
    }
    if (isChanged(&State::miterLimit)) {
        write(begin(EnhancedRecord::setMiterLimit).real(state().miterLimit));
    }
}

void MetafileContext::syncObjects() {
    const auto object = [&](auto DeviceState::*field) {
        if ((recorded_.*field).object != (state().*field).object) {
            recorded_.*field = state().*field;
            objects_.select(state().*field);
        }
    };
    object(&DeviceState::pen);
    object(&DeviceState::brush);
    object(&DeviceState::font);
}

void MetafileContext::syncMapping() {
    using State = DeviceState;
    const bool hasNewWindow = isChanged(&State::windowExtent);
    const bool hasNewViewport = isChanged(&State::viewportExtent);
    if (hasNewWindow || hasNewViewport) {
        const bool areEqual = state().windowExtent == SIZE{1, 1} && state().viewportExtent == SIZE{1, 1};
        write(begin(EnhancedRecord::setMapMode).i32(areEqual ? MM_TEXT : MM_ANISOTROPIC));
        if (!areEqual) {
            write(begin(EnhancedRecord::setWindowExt).size(state().windowExtent));
            write(begin(EnhancedRecord::setViewportExt).size(state().viewportExtent));
        }
    }
    if (isChanged(&State::windowOrigin)) {
        write(begin(EnhancedRecord::setWindowOrg).point(state().windowOrigin));
    }
    if (isChanged(&State::viewportOrigin)) {
        write(begin(EnhancedRecord::setViewportOrg).point(state().viewportOrigin));
    }
    if (isChanged(&State::world)) {
        write(begin(EnhancedRecord::setWorldTransform).transform(state().world));
    }
}

void MetafileContext::syncClip() {
    if (areEqual(recorded_.clip, state().clip)) {
        return;
    }
    recorded_.clip = state().clip;
    RecordWriter record = begin(EnhancedRecord::extSelectClipRgn);
    if (state().clip) {
        const auto region = writeRegion(*state().clip);
        record.u32(region.size()).u32(RGN_COPY).bytes(region);
    } else {
        record.u32(0U).u32(RGN_COPY);
    }
    write(record);
}

void MetafileContext::syncPosition() {
    if (!isRecorded_ && isChanged(&DeviceState::position)) {
        write(begin(EnhancedRecord::moveTo).point(state().position));
    }
}

} // namespace mox::host
