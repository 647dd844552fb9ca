#include "host/graphics/devicecontext.h"
#include "host/pixels/rasteroperation.h"

#include <utility>

namespace mox::host {

namespace {

using platform::BLENDFUNCTION;
using CopyKind = ImageCopy::Kind;

/// A copy with what the context has to say about it; the areas are in device pixels.
ImageCopy copyInto(const DeviceContext& context, CopyKind kind, const SignedRect& target, std::shared_ptr<const Bitmap> source,
                   const SignedRect& area) {
    ImageCopy copy;
    copy.kind = kind;
    copy.target = target;
    copy.source = std::move(source);
    copy.area = area;
    copy.stretchMode = context.state().stretchMode;
    copy.paint = context.paint();
    copy.textColor = context.state().textColor;
    copy.backColor = context.state().bkColor;
    return copy;
}

bool keepsAxes(const DeviceContext& context) {
    return context.toDevice().keepsAxes();
}

/// Pixels of a context that can be copied from; null for one that has none, or is turned.
std::shared_ptr<const Bitmap> pixelsOf(const DeviceContext& source) {
    return keepsAxes(source) ? source.canvas().bitmap() : nullptr;
}

bool isNegative(const SignedRect& area) {
    return area.cx < 0 || area.cy < 0;
}

bool isKnown(const BLENDFUNCTION& blend, const Bitmap& source) {
    const bool isPlain = blend.AlphaFormat == 0;
    return blend.BlendOp == 0 && blend.BlendFlags == 0 &&
           (isPlain || (blend.AlphaFormat == platform::AC_SRC_ALPHA && source.isPlain()));
}

/// Of an area whose extents are not negative.
bool isInside(const SignedRect& area, const Bitmap& bitmap) {
    return area.x >= 0 && area.y >= 0 && area.cx <= bitmap.width() - area.x && area.cy <= bitmap.height() - area.y;
}

bool overlap(const SignedRect& a, const SignedRect& b) {
    const auto rect = [](const SignedRect& area) { return RECT{area.x, area.y, area.x + area.cx, area.y + area.cy}; };
    return !isEmpty(intersection(rect(a), rect(b)));
}

/// `area` in pixels of the source.
bool combine(DeviceContext& context, const SignedRect& target, std::shared_ptr<const Bitmap> source, const SignedRect& area,
             platform::COLORREF sourceBackColor, std::uint32_t rop) {
    if (!keepsAxes(context) || (usesSource(rop) && !source)) {
        return false;
    }
    ImageCopy copy = copyInto(context, CopyKind::raster, context.toDevice(target), std::move(source), area);
    copy.rop = rop;
    copy.sourceBackColor = sourceBackColor;
    return context.canvas().copy(copy, context.clip());
}

/// `from` in logical units of the source.
bool combine(DeviceContext& context, const SignedRect& target, const DeviceContext* source, const SignedRect& from,
             std::uint32_t rop) {
    if (!source || !usesSource(rop)) {
        return combine(context, target, nullptr, {}, 0, rop);
    }
    return combine(context, target, pixelsOf(*source), source->toDevice(from), source->state().bkColor, rop);
}

} // namespace

bool DeviceContext::bitBlt(const SignedRect& target, const DeviceContext* source, POINT from, std::uint32_t rop) {
    return combine(*this, target, source, {from.x, from.y, target.cx, target.cy}, rop);
}

bool DeviceContext::stretchBlt(const SignedRect& target, const DeviceContext* source, const SignedRect& from, std::uint32_t rop) {
    return combine(*this, target, source, from, rop);
}

bool DeviceContext::transparentBlt(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                                   platform::COLORREF transparent) {
    auto pixels = pixelsOf(source);
    if (!pixels || !keepsAxes(*this) || isNegative(target) || isNegative(from)) {
        return false;
    }
    ImageCopy copy = copyInto(*this, CopyKind::transparent, toDevice(target), std::move(pixels), source.toDevice(from));
    copy.transparentColor = transparent;
    copy.sourceBackColor = source.state().bkColor;
    return canvas().copy(copy, clip());
}

bool DeviceContext::alphaBlend(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                               const BLENDFUNCTION& blend) {
    auto pixels = pixelsOf(source);
    if (!pixels || !keepsAxes(*this) || isNegative(target) || isNegative(from) || !isKnown(blend, *pixels)) {
        return false;
    }
    ImageCopy copy = copyInto(*this, CopyKind::blend, toDevice(target), std::move(pixels), source.toDevice(from));
    const bool isWithinOne = copy.source == canvas().bitmap() && overlap(copy.target, copy.area);
    if (isWithinOne || isNegative(copy.area) || !isInside(copy.area, *copy.source)) {
        return false;
    }
    copy.blend = blend;
    copy.sourceBackColor = source.state().bkColor;
    return canvas().copy(copy, clip());
}

bool DeviceContext::drawBitmap(const SignedRect& target, std::shared_ptr<const Bitmap> source, const SignedRect& from,
                               std::uint32_t rop) {
    return combine(*this, target, std::move(source), from, state().bkColor, rop);
}

} // namespace mox::host
