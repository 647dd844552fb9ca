#include "host/icons/icons.h"

#include "host/icons/drawicon.h"
#include "host/icons/iconparts.h"
#include "host/icons/systemicons.h"
#include "host/machine/systemversion.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace mox::host {

namespace {

using namespace platform;

/// With ends that the record can hold.
RECT rectangle(const SignedRect& area) {
    const auto end = [](std::int32_t from, std::int32_t extent) {
        using Limits = std::numeric_limits<std::int32_t>;
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(std::int64_t{from} + extent, Limits::min(), Limits::max()));
    };
    const std::int32_t right = end(area.x, area.cx);
    const std::int32_t bottom = end(area.y, area.cy);
    return {std::min(area.x, right), std::min(area.y, bottom), std::max(area.x, right), std::max(area.y, bottom)};
}

/// A size in pixels that icons can have.
std::int32_t metric(const MachineConfig& config, std::int32_t index) {
    constexpr std::int32_t most = 1024;
    return std::clamp(systemMetric(config, index), 1, most);
}

} // namespace

Handle Icons::create(const ICONINFO& info) {
    const auto mask = graphics_.bitmap(info.hbmMask);
    const auto color = graphics_.bitmap(info.hbmColor);
    if (!mask || (info.hbmColor != 0 && !color)) {
        return 0;
    }
    std::optional<Icon> icon = makeIcon(*mask, color.get());
    if (!icon) {
        return 0;
    }
    icon->isCursor = !info.fIcon;
    icon->hotspot = info.fIcon ? POINT{icon->image->width() / 2, icon->image->height() / 2} : POINT{info.xHotspot, info.yHotspot};
    return add(*std::move(icon));
}

bool Icons::info(Handle handle, ICONINFO& info) {
    const auto icon = this->icon(handle);
    if (!icon) {
        return false;
    }
    const bool hasColor = !isBlackAndWhite(*icon);
    const Handle mask = graphics_.add(maskBitmapOf(*icon));
    const Handle color = mask != 0 && hasColor ? graphics_.add(colorBitmapOf(*icon)) : 0;
    if (mask == 0 || (hasColor && color == 0)) {
        graphics_.deleteObject(mask);
        return false;
    }
    info = {!icon->isCursor, icon->hotspot.x, icon->hotspot.y, mask, color};
    return true;
}

bool Icons::destroy(Handle handle) {
    const auto icon = this->icon(handle);
    return icon && (icon->isShared || graphics_.handles().close<Icon>(handle));
}

Handle Icons::load(std::uint32_t resource) {
    const std::lock_guard lock(guard_);
    if (const auto found = loaded_.find(resource); found != loaded_.end()) {
        return found->second;
    }
    std::optional<Icon> icon = systemIcon(resource, config_.windows.major, systemSize());
    if (!icon) {
        return 0;
    }
    icon->isShared = true;
    const Handle handle = graphics_.add("", *std::move(icon));
    if (handle != 0) {
        loaded_[resource] = handle;
    }
    return handle;
}

bool Icons::draw(Handle hdc, SignedRect area, Handle handle, Handle ground, std::uint32_t flags) {
    const auto context = graphics_.context(hdc);
    const auto icon = this->icon(handle);
    if (!context || !icon) {
        return false;
    }
    const SIZE usual = (flags & DI_DEFAULTSIZE) != 0 ? systemSize() : SIZE{icon->image->width(), icon->image->height()};
    area.cx = area.cx == 0 ? usual.cx : area.cx;
    area.cy = area.cy == 0 ? usual.cy : area.cy;
    if (const auto brush = graphics_.object<Brush>(ground); brush && !context->fillRect(rectangle(area), *brush)) {
        return false;
    }
    return drawIcon(*context, *icon, area, flags);
}

SIZE Icons::systemSize() const {
    return {metric(config_, SM_CXICON), metric(config_, SM_CYICON)};
}

SIZE Icons::smallSize() const {
    return {metric(config_, SM_CXSMICON), metric(config_, SM_CYSMICON)};
}

} // namespace mox::host
