#include "host/metafiles/stage.h"

#include "host/graphics/graphics.h"
#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/recordreader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mox::host {

namespace {

/// More than a picture ever needs, and not more than memory bears.
constexpr std::size_t mostSaved = 1024;

} // namespace

Stage::Stage(DeviceContext& target, const Transform& base, SIZE device, SIZE micrometers)
    : target_(target), before_(target.state()), base_(base.then(target.toDevice())), mapping_(device, micrometers),
      limit_(before_.clip) {
    // A picture looks the same whatever was chosen before.
    DeviceState fresh = target.graphics().initialState();
    fresh.bitmap = before_.bitmap;
    fresh.clip = before_.clip;
    const PathPoint origin = base_.apply({0, 0});
    fresh.brushOrigin = {static_cast<std::int32_t>(std::clamp(std::floor(origin.x + 0.5), -1e6, 1e6)),
                         static_cast<std::int32_t>(std::clamp(std::floor(origin.y + 0.5), -1e6, 1e6))};
    target.state() = std::move(fresh);
    try {
        setMapping(mapping_);
    } catch (...) {
        target_.state() = std::move(before_);
        throw;
    }
}

Stage::~Stage() {
    target_.state() = std::move(before_);
}

void Stage::setMapping(const Mapping& mapping) {
    const Transform world = mapping.toDevice().then(base_);
    for (const double part : {world.m11, world.m12, world.m21, world.m22, world.dx, world.dy}) {
        // Numbers that no picture needs, and no arithmetic stands.
        constexpr double most = 1e15;
        if (!(std::abs(part) < most)) {
            throw BrokenRecord();
        }
    }
    mapping_ = mapping;
    state().world = world;
}

bool Stage::save() {
    if (saved_.size() >= mostSaved) {
        return false;
    }
    saved_.push_back({state(), mapping_, clip_, limit_});
    return true;
}

bool Stage::restore(std::int32_t saved) {
    const auto count = static_cast<std::int64_t>(saved_.size());
    const std::int64_t number = saved < 0 ? count + saved + 1 : saved;
    if (number < 1 || number > count) {
        return false;
    }
    Saved& chosen = saved_[static_cast<std::size_t>(number - 1)];
    state() = std::move(chosen.state);
    mapping_ = chosen.mapping;
    clip_ = std::move(chosen.clip);
    limit_ = std::move(chosen.limit);
    saved_.erase(saved_.begin() + (number - 1), saved_.end());
    return true;
}

void Stage::applyClip() {
    state().clip = limit_ ? limit_ : clip_;
    if (limit_ && clip_) {
        state().clip->intersect(*clip_);
    }
}

Region Stage::toPixels(const RECT& area) const {
    const POINT first = target_.toDevice(POINT{area.left, area.top});
    const POINT second = target_.toDevice(POINT{area.right, area.bottom});
    return Region(
        RECT{std::min(first.x, second.x), std::min(first.y, second.y), std::max(first.x, second.x), std::max(first.y, second.y)});
}

void Stage::intersectClip(const RECT& area) {
    const Region pixels = toPixels(area);
    if (clip_) {
        clip_->intersect(pixels);
    } else {
        clip_ = pixels;
    }
    applyClip();
}

void Stage::excludeClip(const RECT& area) {
    if (!clip_) {
        clip_ = Region(target_.canvas().bounds());
    }
    clip_->subtract(toPixels(area));
    applyClip();
}

void Stage::offsetClip(POINT distance) {
    if (clip_) {
        const Transform transform = target_.toDevice();
        const double dx = distance.x * transform.m11 + distance.y * transform.m21;
        const double dy = distance.x * transform.m12 + distance.y * transform.m22;
        // Further than this everything is outside.
        constexpr double most = 1 << 24;
        clip_->translate(static_cast<int>(std::lround(std::clamp(dx, -most, most))),
                         static_cast<int>(std::lround(std::clamp(dy, -most, most))));
        applyClip();
    }
}

bool Stage::combineClip(const Region& area, std::uint32_t mode) {
    Region all = clip_ ? *clip_ : Region(target_.canvas().bounds());
    switch (mode) {
    case RGN_AND:
        all.intersect(area);
        break;
    case RGN_OR:
        all.unite(area);
        break;
    case RGN_XOR: {
        Region common = all;
        common.intersect(area);
        all.unite(area);
        all.subtract(common);
        break;
    }
    case RGN_DIFF:
        all.subtract(area);
        break;
    case RGN_COPY:
        all = area;
        break;
    default:
        return false;
    }
    clip_ = std::move(all);
    applyClip();
    return true;
}

void Stage::resetClip() {
    clip_.reset();
    applyClip();
}

void Stage::keepClip() {
    limit_ = state().clip;
    clip_.reset();
}

} // namespace mox::host
