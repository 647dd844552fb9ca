#include "host/pictures/pixelrows.h"

#include "host/desktop/screen.h"
#include "host/machine/machine.h"
#include "host/pictures/contentimage.h"
#include "host/pictures/imagelimits.h"
#include "host/pictures/renderpicture.h"

#include <algorithm>

namespace mox::host {

namespace {

/// A bitmap with a context to draw into it, both the machine's for as long as this lives.
class DrawnBitmap {
public:
    DrawnBitmap(Machine& machine, std::shared_ptr<Bitmap> bitmap)
        : machine_(machine), context_(machine.gdi32.CreateCompatibleDC(0)), bitmap_(machine.graphics.add(std::move(bitmap))),
          before_(machine.gdi32.SelectObject(context_, bitmap_)) {}
    ~DrawnBitmap() {
        machine_.gdi32.SelectObject(context_, before_);
        machine_.gdi32.DeleteDC(context_);
        machine_.gdi32.DeleteObject(bitmap_);
    }
    DrawnBitmap(const DrawnBitmap&) = delete;
    DrawnBitmap& operator=(const DrawnBitmap&) = delete;

    /// 0 if there is none.
    platform::Handle context() const noexcept { return before_ != 0 ? context_ : 0; }

private:
    Machine& machine_;
    platform::Handle context_;
    platform::Handle bitmap_;
    platform::Handle before_;
};

int pixelsOf(std::int32_t himetric) {
    return std::max(static_cast<int>((std::int64_t{himetric} * screenDotsPerInch + 1270) / 2540), 1);
}

std::shared_ptr<Bitmap> drawnMetafile(Machine& machine, const PictureContent& content) {
    const int width = pixelsOf(content.size.cx);
    const int height = pixelsOf(content.size.cy);
    checkedImageBytes(width, height, 32);
    auto bitmap = createImage({.width = width, .height = height});
    constexpr Pixel white = 0xFFFFFF;
    std::fill_n(bitmap->pixels(0), bitmap->bytes().size() / sizeof(Pixel), white);
    const DrawnBitmap drawn(machine, bitmap);
    requireImage(drawn.context() != 0 && renderPicture(machine, content, drawn.context(), {0, 0, width, height},
                                                       {0, content.size.cy, content.size.cx, -content.size.cy}));
    return bitmap;
}

} // namespace

std::shared_ptr<const Bitmap> bitmapOf(Machine& machine, const PictureContent& content) {
    if (content.type == pictureMetafile || content.type == pictureEnhancedMetafile) {
        return drawnMetafile(machine, content);
    }
    const Image image = imageOf(machine.graphics, content);
    if (const auto* const icon = std::get_if<Icon>(&image)) {
        return flattened(*icon);
    }
    return std::get<std::shared_ptr<Bitmap>>(image);
}

std::shared_ptr<const Bitmap> bitmapOf(Machine& machine, platform::Handle hdc, const platform::RECT& area) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    auto bitmap = createImage({.width = width, .height = height});
    const DrawnBitmap drawn(machine, bitmap);
    const bool isCopied = drawn.context() != 0 &&
                          machine.gdi32.BitBlt(drawn.context(), 0, 0, width, height, hdc, area.left, area.top, platform::SRCCOPY);
    return isCopied ? bitmap : nullptr;
}

void copyRows(const Bitmap& bitmap, const platform::RECT& area, std::span<Pixel> rows) {
    const auto width = static_cast<std::size_t>(area.right - area.left);
    for (int y = area.top; y < area.bottom; ++y) {
        const std::span<Pixel> row = rows.subspan(static_cast<std::size_t>(y - area.top) * width, width);
        if (bitmap.isPlain()) {
            std::copy_n(bitmap.pixels(y) + area.left, width, row.begin());
        } else {
            bitmap.read(area.left, y, row);
        }
    }
}

} // namespace mox::host
