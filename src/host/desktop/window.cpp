#include "host/desktop/window.h"

#include "host/desktop/systemcolors.h"
#include "host/graphics/rasterfill.h"

#include <algorithm>
#include <utility>

namespace mox::host {

namespace {

RECT insideOf(const RECT& place) {
    if (isEmpty(place)) {
        return {};
    }
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    const RECT inside{frameWidth, frameWidth + captionHeight, width - frameWidth, height - frameWidth};
    return isEmpty(inside) ? RECT{} : inside;
}

void paint(Bitmap& surface, const RECT& area, std::int32_t color) {
    fillBox(surface, area, {.brush = {.color = systemColor(color)}}, Region(surface.bounds()));
}

void paintFrame(Bitmap& surface, const RECT& inside) {
    const auto [left, top, right, bottom] = surface.bounds();
    paint(surface, {left, top, right, bottom}, colorWindowFrame);
    paint(surface, {left + 1, top + 1, right - 1, bottom - 1}, colorActiveBorder);
    paint(surface, {left + frameWidth, top + frameWidth, right - frameWidth, top + frameWidth + captionHeight},
          colorActiveCaption);
    paint(surface, inside, colorWindow);
}

void copyCommonPart(const Bitmap& from, Bitmap& to) {
    const auto width = static_cast<std::size_t>(std::min(from.width(), to.width()));
    for (int y = 0; y < std::min(from.height(), to.height()); ++y) {
        std::copy_n(from.pixels(y), width, to.pixels(y));
    }
}

} // namespace

std::optional<Window::Look> Window::lookAt(const RECT& place) {
    Look look{place, nullptr, nullptr};
    if (isEmpty(place)) {
        return look;
    }
    const std::int64_t width = std::int64_t{place.right} - place.left;
    const std::int64_t height = std::int64_t{place.bottom} - place.top;
    constexpr std::int64_t most = 1 << 15;
    look.surface = width < most && height < most ? Bitmap::create(static_cast<int>(width), static_cast<int>(height)) : nullptr;
    if (!look.surface) {
        return std::nullopt;
    }
    const RECT inside = insideOf(place);
    paintFrame(*look.surface, inside);
    look.client = Bitmap::part(look.surface, inside);
    return look;
}

std::shared_ptr<Window> Window::create(const RECT& place, std::u16string title) {
    auto look = lookAt(place);
    return look ? std::make_shared<Window>(Made(), *std::move(look), std::move(title)) : nullptr;
}

RECT Window::place() const {
    const std::lock_guard lock(guard_);
    return look_.place;
}

bool Window::isVisible() const {
    const std::lock_guard lock(guard_);
    return isVisible_;
}

void Window::setVisible(bool isVisible) {
    const std::lock_guard lock(guard_);
    isVisible_ = isVisible;
}

bool Window::move(const RECT& place) {
    const std::lock_guard lock(guard_);
    const RECT& before = look_.place;
    const auto sizeOf = [](const RECT& area) {
        return std::pair(std::int64_t{area.right} - area.left, std::int64_t{area.bottom} - area.top);
    };
    if (sizeOf(before) == sizeOf(place)) {
        look_.place = place;
        return true;
    }
    auto look = lookAt(place);
    if (!look) {
        return false;
    }
    if (look->client && look_.client) {
        copyCommonPart(*look_.client, *look->client);
    }
    look_ = *std::move(look);
    return true;
}

RECT Window::clientArea() const {
    return insideOf(place());
}

std::shared_ptr<Bitmap> Window::surface() const {
    const std::lock_guard lock(guard_);
    return look_.surface;
}

std::shared_ptr<Bitmap> Window::client() const {
    const std::lock_guard lock(guard_);
    return look_.client;
}

} // namespace mox::host
