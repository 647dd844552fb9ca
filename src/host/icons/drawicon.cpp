#include "host/icons/drawicon.h"

#include "host/graphics/rastercanvas.h"
#include "host/icons/iconimage.h"
#include "host/icons/iconparts.h"

#include "platform/user32.h"

#include <algorithm>
#include <cstdlib>

namespace mox::host {

namespace {

using namespace platform;

constexpr BLENDFUNCTION byAlpha{0, 0, 255, AC_SRC_ALPHA};

/// The modes for copying both parts of an icon pixel by pixel, as long as it lives.
class CopyModes {
public:
    explicit CopyModes(DeviceState& state)
        : state_(state), stretchMode_(state.stretchMode), textColor_(state.textColor), bkColor_(state.bkColor) {
        set(COLORONCOLOR, 0, 0xFFFFFF);
    }
    CopyModes(const CopyModes&) = delete;
    CopyModes& operator=(const CopyModes&) = delete;
    ~CopyModes() { set(stretchMode_, textColor_, bkColor_); }

private:
    void set(std::int32_t stretchMode, COLORREF textColor, COLORREF bkColor) {
        state_.stretchMode = stretchMode;
        state_.textColor = textColor;
        state_.bkColor = bkColor;
    }

    DeviceState& state_;
    const std::int32_t stretchMode_;
    const COLORREF textColor_;
    const COLORREF bkColor_;
};

bool hasPixels(const DeviceContext& context) {
    return context.kind() != DeviceContext::Kind::metafile && context.canvas().bitmap() != nullptr;
}

/// In the size that the pixels have, so that a larger or smaller icon stays smooth; no more of it than is seen.
bool blendOnPixels(const DeviceContext& context, const Bitmap& image, const SignedRect& target) {
    const Region clip = context.clip();
    const RECT part = intersection(areaOf(target), clip.bounds());
    if (isEmpty(part)) {
        return true;
    }
    const std::int32_t width = part.right - part.left;
    const std::int32_t height = part.bottom - part.top;
    ImageCopy copy;
    copy.kind = ImageCopy::Kind::blend;
    copy.target = {part.left, part.top, width, height};
    copy.source = scaledPart(image, target, part);
    copy.area = {0, 0, width, height};
    copy.blend = byAlpha;
    return copy.source && context.canvas().copy(copy, clip);
}

/// Pages and recordings get it as it is, and whoever shows them finds the size.
bool blendWhole(DeviceContext& context, const Bitmap& image, const SignedRect& target) {
    // Mixing does not mirror.
    const SignedRect whole{target.cx < 0 ? image.width() : 0, target.cy < 0 ? image.height() : 0,
                           target.cx < 0 ? -image.width() : image.width(), target.cy < 0 ? -image.height() : image.height()};
    auto pixels = scaledPart(image, whole, image.bounds());
    if (!pixels) {
        return false;
    }
    const DeviceContext source(context.graphics(), DeviceContext::Kind::memory, context.sharedDevice(),
                               std::make_shared<RasterCanvas>(std::move(pixels)));
    const SignedRect upright{std::min(target.x, target.x + target.cx), std::min(target.y, target.y + target.cy),
                             std::abs(target.cx), std::abs(target.cy)};
    return context.alphaBlend(upright, source, {0, 0, image.width(), image.height()}, byAlpha);
}

bool copyPart(DeviceContext& context, std::shared_ptr<const Bitmap> part, const SignedRect& target, std::uint32_t rop) {
    const SignedRect all{0, 0, part ? part->width() : 0, part ? part->height() : 0};
    return part && context.drawBitmap(target, std::move(part), all, rop);
}

} // namespace

bool drawIcon(DeviceContext& context, const Icon& icon, const SignedRect& target, std::uint32_t flags) {
    const bool withMask = (flags & DI_MASK) != 0;
    const bool withImage = (flags & DI_IMAGE) != 0;
    if (withImage && icon.hasAlpha) {
        return hasPixels(context) ? blendOnPixels(context, *icon.image, context.toDevice(target))
                                  : blendWhole(context, *icon.image, target);
    }
    const CopyModes modes(context.state());
    const auto mask = icon.mask || !withMask ? icon.mask : maskBitmapOf(icon);
    if (withMask && withImage) {
        return copyPart(context, mask, target, SRCAND) && copyPart(context, icon.image, target, SRCINVERT);
    }
    return (withMask || withImage) && copyPart(context, withMask ? mask : icon.image, target, SRCCOPY);
}

} // namespace mox::host
