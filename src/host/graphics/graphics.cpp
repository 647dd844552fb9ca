#include "host/graphics/graphics.h"

#include "host/desktop/desktop.h"
#include "host/graphics/rastercanvas.h"
#include "host/graphics/stockobjects.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

namespace mox::host {

namespace {

/// Fills a record as far as it is known; the bytes filled, 0 if the place is too small.
template <class Record> std::int32_t give(const Record& record, std::span<std::byte> place) {
    if (place.size() < sizeof(Record)) {
        return 0;
    }
    std::memcpy(place.data(), &record, sizeof(Record));
    return static_cast<std::int32_t>(sizeof(Record));
}

std::vector<platform::Handle> inOrder(const std::map<std::int32_t, platform::Handle>& objects) {
    std::vector<platform::Handle> handles;
    std::ranges::transform(objects, std::back_inserter(handles), [](const auto& object) { return object.second; });
    std::ranges::sort(handles);
    return handles;
}

/// The bitmap of a memory context before another is selected: one monochrome pixel.
std::shared_ptr<Bitmap> firstBitmap() {
    return Bitmap::create({.width = 1, .height = 1, .bitsPerPixel = 1});
}

} // namespace

Graphics::Graphics(Handles& handles, Desktop& desktop, Fonts& fonts)
    : handles_(handles), desktop_(desktop), fonts_(fonts), stock_(openStockObjects(handles)), stockHandles_(inOrder(stock_)) {}

Graphics::~Graphics() = default;

DeviceState Graphics::initialState() const {
    DeviceState state;
    const auto selected = [&]<class Object>(Selected<Object>& place, std::int32_t index) {
        place = {stockObject(index), object<Object>(stockObject(index))};
    };
    selected(state.pen, platform::BLACK_PEN);
    selected(state.brush, platform::WHITE_BRUSH);
    selected(state.font, platform::SYSTEM_FONT);
    state.bitmap = stockObject(firstBitmapIndex);
    return state;
}

platform::Handle Graphics::createScreenContext() {
    return open(std::make_shared<DeviceContext>(*this, DeviceContext::Kind::screen, desktop_.device(), desktop_.canvas()));
}

platform::Handle Graphics::createCompatibleContext(platform::Handle hdc) {
    const auto reference = context(hdc);
    if (hdc != 0 && !reference) {
        return 0;
    }
    auto bitmap = firstBitmap();
    if (!bitmap) {
        return 0;
    }
    return open(std::make_shared<DeviceContext>(*this, DeviceContext::Kind::memory,
                                                reference ? reference->sharedDevice() : desktop_.device(),
                                                std::make_shared<RasterCanvas>(std::move(bitmap))));
}

bool Graphics::deleteContext(platform::Handle hdc) {
    const auto context = this->context(hdc);
    if (!context || !handles_.close<DeviceContext>(hdc)) {
        return false;
    }
    const std::lock_guard lock(guard_);
    std::erase_if(holders_, [&](const auto& holder) { return holder.second == hdc; });
    return true;
}

platform::Handle Graphics::stockObject(std::int32_t index) const {
    const auto found = stock_.find(index);
    return found == stock_.end() ? 0 : found->second;
}

bool Graphics::isStock(platform::Handle object) const {
    return std::ranges::binary_search(stockHandles_, object);
}

platform::Handle Graphics::select(platform::Handle hdc, platform::Handle handle) {
    const auto context = this->context(hdc);
    if (!context) {
        return 0;
    }
    const auto exchange = [&]<class Object>(Selected<Object>& place, std::shared_ptr<const Object> object) {
        return std::exchange(place, {handle, std::move(object)}).handle;
    };
    DeviceState& state = context->state();
    if (auto pen = object<Pen>(handle)) {
        return exchange(state.pen, std::move(pen));
    }
    if (auto brush = object<Brush>(handle)) {
        return exchange(state.brush, std::move(brush));
    }
    if (auto font = object<Font>(handle)) {
        return exchange(state.font, std::move(font));
    }
    if (auto chosen = bitmap(handle)) {
        if (context->kind() != DeviceContext::Kind::memory) {
            return 0;
        }
        const std::lock_guard lock(guard_);
        // A bitmap is in one context at a time; the first one, which everybody shares, in none.
        if (handle == stockObject(firstBitmapIndex)) {
            chosen = firstBitmap();
        } else if (const auto [holder, isFree] = holders_.try_emplace(handle, hdc); !isFree && holder->second != hdc) {
            return 0;
        }
        const platform::Handle before = std::exchange(state.bitmap, handle);
        if (before != handle) {
            holders_.erase(before);
            context->setCanvas(std::make_shared<RasterCanvas>(std::move(chosen)));
        }
        return before;
    }
    return 0;
}

bool Graphics::deleteObject(platform::Handle object) {
    if (isStock(object)) {
        return true;
    }
    {
        const std::lock_guard lock(guard_);
        if (holders_.contains(object)) {
            return false;
        }
    }
    // What is selected lives on in its context, under a number that nothing answers to any more.
    return handles_.close<Pen>(object) || handles_.close<Brush>(object) || handles_.close<Font>(object) ||
           handles_.close<Bitmap>(object);
}

std::int32_t Graphics::getObject(platform::Handle handle, std::span<std::byte> record) const {
    if (const auto found = bitmap(handle)) {
        return give(platform::BITMAP{0, found->width(), found->height(), static_cast<std::int32_t>(found->rowBytes()), 1,
                                     static_cast<std::uint16_t>(found->bitsPerPixel()),
                                     found->isSection() ? found->bytes().data() : nullptr},
                    record);
    }
    if (const auto pen = object<Pen>(handle)) {
        return give(platform::LOGPEN{static_cast<std::uint32_t>(pen->style), {pen->width, 0}, pen->color}, record);
    }
    if (const auto brush = object<Brush>(handle)) {
        return give(platform::LOGBRUSH{brush->style, brush->color,
                                       brush->style == platform::BS_PATTERN ? brush->patternHandle : brush->hatch},
                    record);
    }
    if (const auto font = object<Font>(handle)) {
        return give(font->description, record);
    }
    return 0;
}

platform::Handle Graphics::createBrush(const platform::LOGBRUSH& description) {
    Brush brush{description.lbStyle, description.lbColor, description.lbHatch, nullptr, 0};
    switch (description.lbStyle) {
    case platform::BS_SOLID:
    case platform::BS_NULL:
        break;
    case platform::BS_HATCHED:
        if (description.lbHatch < 0 || description.lbHatch > 5) {
            return 0;
        }
        break;
    case platform::BS_PATTERN: {
        const auto pattern = bitmap(description.lbHatch);
        brush.pattern = pattern ? pattern->copy() : nullptr;
        brush.patternHandle = description.lbHatch;
        if (!brush.pattern) {
            return 0;
        }
        break;
    }
    default:
        return 0;
    }
    return add("brush", std::move(brush));
}

} // namespace mox::host
