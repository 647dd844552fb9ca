#include "host/pictures/picturecontent.h"

#include "host/desktop/screen.h"
#include "host/graphics/graphics.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace mox::host {

namespace {

using platform::SIZE;

constexpr std::int32_t himetricPerInch = 2540;

SIZE himetricOf(const Bitmap& bitmap) {
    return {himetricOfPixels(bitmap.width()), himetricOfPixels(bitmap.height())};
}

std::optional<SIZE> sizeOf(const std::shared_ptr<const Icon>& icon) {
    const Bitmap* const pixels = !icon ? nullptr : icon->image ? icon->image.get() : icon->mask.get();
    return pixels ? std::optional(himetricOf(*pixels)) : std::nullopt;
}

/// The frame in the header of an enhanced metafile.
std::optional<SIZE> sizeOf(const std::shared_ptr<const EnhancedMetafile>& metafile) {
    constexpr std::size_t framePlace = 24;
    platform::RECT frame;
    if (!metafile || metafile->bits.size() < framePlace + sizeof frame) {
        return std::nullopt;
    }
    std::memcpy(&frame, metafile->bits.data() + framePlace, sizeof frame);
    const auto extent = [](std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(
            std::clamp<std::int64_t>(std::int64_t{to} - from, 0, std::numeric_limits<std::int32_t>::max()));
    };
    return SIZE{extent(frame.left, frame.right), extent(frame.top, frame.bottom)};
}

std::optional<SIZE> sizeOf(const Graphics& graphics, const platform::PICTDESC& description) {
    switch (description.picType) {
    case platform::PICTYPE_BITMAP: {
        const auto bitmap = graphics.bitmap(description.handle);
        return bitmap ? std::optional(himetricOf(*bitmap)) : std::nullopt;
    }
    case platform::PICTYPE_METAFILE:
        return graphics.object<OldMetafile>(description.handle)
                   ? std::optional(SIZE{description.hpal & 0xFFFF, description.hpal >> 16 & 0xFFFF})
                   : std::nullopt;
    case platform::PICTYPE_ICON:
        return sizeOf(graphics.object<Icon>(description.handle));
    case platform::PICTYPE_ENHMETAFILE:
        return sizeOf(graphics.object<EnhancedMetafile>(description.handle));
    default:
        return std::nullopt;
    }
}

} // namespace

std::int32_t himetricOfPixels(std::int64_t pixels) noexcept {
    const std::int64_t size = (pixels * himetricPerInch + screenDotsPerInch / 2) / screenDotsPerInch;
    return static_cast<std::int32_t>(std::min<std::int64_t>(size, std::numeric_limits<std::int32_t>::max()));
}

std::optional<PictureContent> contentOf(const Graphics& graphics, const platform::PICTDESC& description) {
    if (description.cbSizeofstruct != sizeof description) {
        return std::nullopt;
    }
    if (description.picType == platform::PICTYPE_NONE) {
        return PictureContent();
    }
    const std::optional<SIZE> size = sizeOf(graphics, description);
    if (!size) {
        return std::nullopt;
    }
    return PictureContent{static_cast<std::int16_t>(description.picType), description.handle, *size,
                          description.picType == platform::PICTYPE_BITMAP ? description.hpal : 0};
}

void freeContent(const PictureContent& content) {
    switch (content.type) {
    case pictureBitmap:
        platform::gdi32().DeleteObject(content.handle);
        break;
    case pictureMetafile:
        platform::gdi32().DeleteMetaFile(content.handle);
        break;
    case pictureIcon:
        platform::user32().DestroyIcon(content.handle);
        break;
    case pictureEnhancedMetafile:
        platform::gdi32().DeleteEnhMetaFile(content.handle);
        break;
    default:
        break;
    }
}

} // namespace mox::host
