#include "host/graphics/devicecontext.h"

#include "host/graphics/shapepaths.h"

#include <algorithm>
#include <utility>

namespace mox::host {

namespace {

/// A rectangle along the axes in device pixels, in order.
RECT placed(const DeviceContext& context, const RECT& area) {
    const POINT a = context.toDevice(POINT{area.left, area.top});
    const POINT b = context.toDevice(POINT{area.right, area.bottom});
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

/// The corners of a rectangle that is not along the axes any more.
Path turnedBox(const DeviceContext& context, const RECT& area) {
    const auto place = [&](std::int32_t x, std::int32_t y) {
        return context.toDevicePoint({static_cast<double>(x), static_cast<double>(y)});
    };
    Path path;
    path.moveTo(place(area.right, area.top));
    path.lineTo(place(area.left, area.top));
    path.lineTo(place(area.left, area.bottom));
    path.lineTo(place(area.right, area.bottom));
    path.close();
    return path;
}

void fillInside(DeviceContext& context, const RECT& inside, const Region& visible) {
    if (!isEmpty(inside) && context.state().brush.object->style != platform::BS_NULL) {
        context.canvas().fillBox(inside, context.paint(), visible);
    }
}

/// The border of a rectangle of one colour, so many pixels from its edges inwards.
void fillFrame(DeviceContext& context, const RECT& box, const RECT& inside, const Stroke& stroke, const Region& visible) {
    const Paint paint{.brush = {.color = stroke.pen.color}, .rop2 = stroke.rop2};
    Canvas& canvas = context.canvas();
    if (isEmpty(inside)) {
        canvas.fillBox(box, paint, visible);
        return;
    }
    canvas.fillBox({box.left, box.top, box.right, inside.top}, paint, visible);
    canvas.fillBox({box.left, inside.top, inside.left, inside.bottom}, paint, visible);
    canvas.fillBox({inside.right, inside.top, box.right, inside.bottom}, paint, visible);
    canvas.fillBox({box.left, inside.bottom, box.right, box.bottom}, paint, visible);
}

bool strokeFrame(DeviceContext& context, const RECT& box, const Stroke& stroke, const Region& visible) {
    const PathBox path{static_cast<double>(box.left), static_cast<double>(box.top), box.right - 1.0, box.bottom - 1.0};
    return context.canvas().stroke(boxPath(path), stroke, visible);
}

/// A rectangle in device pixels, its right and lower edge left out.
bool drawBox(DeviceContext& context, const RECT& box) {
    if (isEmpty(box)) {
        return true;
    }
    const Region visible = context.clip();
    const Stroke stroke = context.stroke();
    const int width = std::max(stroke.pen.width, 1);
    const bool isWide = width > 1;
    const auto [left, top, right, bottom] = box;
    switch (stroke.pen.style) {
    case platform::PS_NULL:
        fillInside(context, {left, top, right - 1, bottom - 1}, visible);
        return true;
    case platform::PS_SOLID:
    case platform::PS_INSIDEFRAME:
        if (!isWide || stroke.pen.style == platform::PS_INSIDEFRAME) {
            const RECT inside{left + width, top + width, right - width, bottom - width};
            fillInside(context, inside, visible);
            fillFrame(context, box, inside, stroke, visible);
            return true;
        }
        [[fallthrough]];
    default: {
        // Half of a wide pen is outside; of an even number of pixels the larger part is to the left and above.
        const int before = isWide ? (width + 1) / 2 : 1;
        const int after = 1 + width / 2;
        fillInside(context, {left + before, top + before, right - after, bottom - after}, visible);
        return strokeFrame(context, box, stroke, visible);
    }
    }
}

} // namespace

bool DeviceContext::moveTo(POINT point, POINT& before) {
    before = std::exchange(state_.position, point);
    return true;
}

bool DeviceContext::lineTo(POINT point) {
    const POINT from = toDevice(std::exchange(state_.position, point));
    return state_.pen.object->style == platform::PS_NULL || canvas_->line(from, toDevice(point), stroke(), clip());
}

bool DeviceContext::rectangle(const RECT& area) {
    if (!toDevice().keepsAxes()) {
        return drawPath(turnedBox(*this, area), true, true);
    }
    return drawBox(*this, placed(*this, area));
}

bool DeviceContext::fillRect(const RECT& area, const Brush& brush) {
    if (isEmpty(area) || brush.style == platform::BS_NULL) {
        return true;
    }
    Paint paint = this->paint(brush);
    paint.rop2 = platform::R2_COPYPEN;
    if (!toDevice().keepsAxes()) {
        return canvas_->fill(turnedBox(*this, area), FillRule::winding, paint, clip());
    }
    return canvas_->fillBox(placed(*this, area), paint, clip());
}

platform::COLORREF DeviceContext::pixel(POINT point) const {
    const POINT place = toDevice(point);
    return state_.clip && !state_.clip->contains(place) ? platform::CLR_INVALID : canvas_->pixel(place);
}

platform::COLORREF DeviceContext::setPixel(POINT point, platform::COLORREF color) {
    const POINT place = toDevice(point);
    return state_.clip && !state_.clip->contains(place) ? platform::CLR_INVALID : canvas_->setPixel(place, color);
}

} // namespace mox::host
