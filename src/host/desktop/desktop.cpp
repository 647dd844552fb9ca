#include "host/desktop/desktop.h"

#include "host/desktop/borrowedcanvas.h"
#include "host/desktop/screendevice.h"
#include "host/desktop/systemcolors.h"
#include "host/graphics/rasterfill.h"

#include <algorithm>
#include <utility>

namespace mox::host {

namespace {

constexpr RECT screenArea{0, 0, screenWidth, screenHeight};

/// What the handle of the screen's own window stands for.
struct DesktopWindow {};

void copyArea(const Bitmap& from, POINT place, Bitmap& to, const Region& area) {
    for (const pixman_box32_t& box : area.boxes()) {
        for (int y = box.y1; y < box.y2; ++y) {
            std::copy_n(from.pixels(y - place.y) + (box.x1 - place.x), box.x2 - box.x1, to.pixels(y) + box.x1);
        }
    }
}

} // namespace

class Desktop::ScreenCanvas final : public BorrowedCanvas {
public:
    explicit ScreenCanvas(Desktop& desktop) : desktop_(desktop) {}

    RECT bounds() const override { return screenArea; }

private:
    std::shared_ptr<Bitmap> pixels() const override { return desktop_.composedScreen(); }

    Desktop& desktop_;
};

class Desktop::WindowCanvas final : public BorrowedCanvas {
public:
    WindowCanvas(Desktop& desktop, std::shared_ptr<Window> window, bool isWhole)
        : desktop_(desktop), window_(std::move(window)), isWhole_(isWhole) {}

private:
    std::shared_ptr<Bitmap> pixels() const override { return isWhole_ ? window_->surface() : window_->client(); }
    void changed() override { desktop_.invalidate(*window_); }

    Desktop& desktop_;
    const std::shared_ptr<Window> window_;
    const bool isWhole_;
};

Desktop::Desktop(Handles& handles)
    : handles_(handles), device_(std::make_shared<ScreenDevice>()), screen_(Bitmap::create(screenWidth, screenHeight)),
      canvas_(std::make_shared<ScreenCanvas>(*this)),
      desktopWindow_(handles.open<DesktopWindow>("", std::make_shared<DesktopWindow>())) {
    invalidate(Region(screenArea));
}

Desktop::~Desktop() = default;

platform::Handle Desktop::createWindow(const RECT& place, std::u16string title) {
    const auto window = Window::create(place, std::move(title));
    const platform::Handle handle = handles_.open<Window>("window", window);
    if (handle != 0) {
        const std::lock_guard lock(guard_);
        windows_.push_back(window);
    }
    return handle;
}

bool Desktop::destroyWindow(platform::Handle handle) {
    const auto closed = window(handle);
    if (!closed || !handles_.close<Window>(handle)) {
        return false;
    }
    const std::lock_guard lock(guard_);
    invalidate(visiblePart(*closed));
    closed->setVisible(false);
    std::erase(windows_, closed);
    return true;
}

bool Desktop::moveWindow(platform::Handle handle, const RECT& place) {
    const auto moved = window(handle);
    if (!moved) {
        return false;
    }
    const std::lock_guard lock(guard_);
    const Region before = visiblePart(*moved);
    if (!moved->move(place)) {
        return false;
    }
    invalidate(before);
    invalidate(visiblePart(*moved));
    return true;
}

bool Desktop::showWindow(platform::Handle handle, bool isVisible) {
    const auto shown = window(handle);
    if (!shown) {
        return false;
    }
    const std::lock_guard lock(guard_);
    if (shown->isVisible() != isVisible) {
        invalidate(visiblePart(*shown));
        shown->setVisible(isVisible);
        invalidate(visiblePart(*shown));
    }
    return true;
}

bool Desktop::raiseWindow(platform::Handle handle) {
    const auto raised = window(handle);
    if (!raised) {
        return false;
    }
    const std::lock_guard lock(guard_);
    Region uncovered = visiblePart(*raised);
    std::erase(windows_, raised);
    windows_.push_back(raised);
    // Only what others covered before changes.
    Region covered = visiblePart(*raised);
    covered.subtract(uncovered);
    invalidate(covered);
    return true;
}

bool Desktop::windowRect(platform::Handle handle, RECT& place) const {
    const auto found = window(handle);
    if (!found && handle != desktopWindow_) {
        return false;
    }
    place = found ? found->place() : screenArea;
    return true;
}

std::shared_ptr<Canvas> Desktop::windowCanvas(platform::Handle handle, bool isWhole) {
    if (handle == desktopWindow_) {
        return canvas_;
    }
    auto found = window(handle);
    return found ? std::make_shared<WindowCanvas>(*this, std::move(found), isWhole) : nullptr;
}

void Desktop::invalidate(const Window& window) {
    const std::lock_guard lock(guard_);
    invalidate(visiblePart(window));
}

Region Desktop::visiblePart(const Window& window) const {
    Region visible;
    if (!window.isVisible()) {
        return visible;
    }
    visible = Region(intersection(window.place(), screenArea));
    const auto place = std::ranges::find(windows_, &window, &std::shared_ptr<Window>::get);
    for (auto above = place == windows_.end() ? place : place + 1; above != windows_.end(); ++above) {
        if ((*above)->isVisible()) {
            visible.subtract(Region((*above)->place()));
        }
    }
    return visible;
}

void Desktop::invalidate(const Region& area) {
    changed_.unite(area);
    isChanged_.store(!changed_.isEmpty(), std::memory_order_release);
}

std::shared_ptr<Bitmap> Desktop::composedScreen() {
    if (!screen_ || !isChanged_.load(std::memory_order_acquire)) {
        return screen_;
    }
    const std::lock_guard lock(guard_);
    fillRegion(*screen_, changed_, {.brush = {.color = systemColor(colorBackground)}}, changed_);
    for (const auto& window : windows_) {
        const auto surface = window->surface();
        if (surface && window->isVisible()) {
            const RECT place = window->place();
            Region area = changed_;
            area.intersect(intersection(place, screenArea));
            copyArea(*surface, {place.left, place.top}, *screen_, area);
        }
    }
    changed_ = Region();
    isChanged_.store(false, std::memory_order_release);
    return screen_;
}

} // namespace mox::host
