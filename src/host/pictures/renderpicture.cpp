#include "host/pictures/renderpicture.h"

#include "host/machine/machine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mox::host {

namespace {

std::int32_t rounded(double value) {
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::lround(std::clamp(value, -most, most)));
}

/// A memory context with a bitmap in it.
class BitmapContext {
public:
    BitmapContext(Machine& machine, platform::Handle like, platform::Handle bitmap)
        : machine_(machine), context_(machine.gdi32.CreateCompatibleDC(like)) {
        if (context_ != 0 && (before_ = machine.gdi32.SelectObject(context_, bitmap)) == 0) {
            selectCopy(bitmap);
        }
    }
    ~BitmapContext() {
        if (before_ != 0) {
            machine_.gdi32.SelectObject(context_, before_);
        }
        if (context_ != 0) {
            machine_.gdi32.DeleteDC(context_);
        }
        if (copy_ != 0) {
            machine_.gdi32.DeleteObject(copy_);
        }
    }
    BitmapContext(const BitmapContext&) = delete;
    BitmapContext& operator=(const BitmapContext&) = delete;

    /// 0 if there is none.
    platform::Handle handle() const noexcept { return before_ != 0 ? context_ : 0; }

private:
    /// A bitmap that somebody has selected cannot be selected again.
    void selectCopy(platform::Handle bitmap) {
        const auto pixels = machine_.graphics.bitmap(bitmap);
        copy_ = pixels ? machine_.graphics.add(pixels->copy()) : 0;
        before_ = copy_ != 0 ? machine_.gdi32.SelectObject(context_, copy_) : 0;
    }

    Machine& machine_;
    platform::Handle context_;
    platform::Handle before_ = 0;
    platform::Handle copy_ = 0;
};

bool renderBitmap(Machine& machine, const PictureContent& picture, platform::Handle hdc, const SignedRect& target,
                  const SignedRect& source) {
    const auto bitmap = machine.graphics.bitmap(picture.handle);
    if (!bitmap) {
        return false;
    }
    const double perX = static_cast<double>(bitmap->width()) / picture.size.cx;
    const double perY = static_cast<double>(bitmap->height()) / picture.size.cy;
    const SignedRect area{rounded(source.x * perX), rounded((static_cast<double>(picture.size.cy) - source.y) * perY),
                          rounded(source.cx * perX), rounded(-static_cast<double>(source.cy) * perY)};
    const BitmapContext context(machine, hdc, picture.handle);
    return context.handle() != 0 && machine.gdi32.StretchBlt(hdc, target.x, target.y, target.cx, target.cy, context.handle(),
                                                             area.x, area.y, area.cx, area.cy, platform::SRCCOPY);
}

/// Where the whole picture lies if `source` of it fills `target`.
RECT wholeArea(const PictureContent& picture, const SignedRect& target, const SignedRect& source) {
    const double perX = static_cast<double>(target.cx) / source.cx;
    const double perY = -static_cast<double>(target.cy) / source.cy;
    const double left = target.x - source.x * perX;
    const double top = target.y - (static_cast<double>(picture.size.cy) - source.y) * perY;
    return {rounded(left), rounded(top), rounded(left + picture.size.cx * perX), rounded(top + picture.size.cy * perY)};
}

bool isWhole(const PictureContent& picture, const SignedRect& source) {
    return source == SignedRect{0, picture.size.cy, picture.size.cx, -picture.size.cy};
}

void clipTo(DeviceContext& context, const SignedRect& target) {
    const SignedRect device = context.toDevice(target);
    const std::int64_t right = std::int64_t{device.x} + device.cx;
    const std::int64_t bottom = std::int64_t{device.y} + device.cy;
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    Region clip = context.clip();
    clip.intersect(RECT{static_cast<std::int32_t>(std::min<std::int64_t>(device.x, right)),
                        static_cast<std::int32_t>(std::min<std::int64_t>(device.y, bottom)),
                        static_cast<std::int32_t>(std::min(std::max<std::int64_t>(device.x, right), most)),
                        static_cast<std::int32_t>(std::min(std::max<std::int64_t>(device.y, bottom), most))});
    context.state().clip = std::move(clip);
}

bool playMetafile(Machine& machine, platform::Handle metafile, const PictureContent& picture, platform::Handle hdc,
                  const SignedRect& target, const SignedRect& source) {
    if (isWhole(picture, source)) {
        return machine.gdi32.PlayEnhMetaFile(hdc, metafile, {target.x, target.y, target.x + target.cx, target.y + target.cy});
    }
    const auto context = machine.graphics.context(hdc);
    if (!context) {
        return false;
    }
    const int saved = context->save();
    clipTo(*context, target);
    const bool done = machine.gdi32.PlayEnhMetaFile(hdc, metafile, wholeArea(picture, target, source));
    context->restore(saved);
    return done;
}

bool renderOldMetafile(Machine& machine, const PictureContent& picture, platform::Handle hdc, const SignedRect& target,
                       const SignedRect& source) {
    const auto metafile = machine.graphics.object<OldMetafile>(picture.handle);
    const platform::Handle converted = metafile ? machine.gdi32.SetWinMetaFileBits(metafile->bits, hdc) : 0;
    if (converted == 0) {
        return false;
    }
    const bool done = playMetafile(machine, converted, picture, hdc, target, source);
    machine.gdi32.DeleteEnhMetaFile(converted);
    return done;
}

} // namespace

bool renderPicture(Machine& machine, const PictureContent& picture, platform::Handle hdc, const SignedRect& target,
                   const SignedRect& source) {
    switch (picture.type) {
    case pictureBitmap:
        return renderBitmap(machine, picture, hdc, target, source);
    case pictureIcon:
        return machine.user32.DrawIconEx(hdc, target.x, target.y, picture.handle, target.cx, target.cy, 0, 0,
                                         platform::DI_NORMAL);
    case pictureEnhancedMetafile:
        return playMetafile(machine, picture.handle, picture, hdc, target, source);
    case pictureMetafile:
        return renderOldMetafile(machine, picture, hdc, target, source);
    default:
        return true;
    }
}

} // namespace mox::host
