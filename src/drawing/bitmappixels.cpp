#include "drawing/bitmappixels.h"

#include "drawing/pictureproperties.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <algorithm>

namespace mox::server {

using namespace platform;

namespace {

/// The screen, for one operation.
class ScreenContext {
public:
    ScreenContext() : handle_(user32().GetDC(0)) {}
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;
    ~ScreenContext() {
        if (handle_ != 0) {
            user32().ReleaseDC(0, handle_);
        }
    }

    Handle handle() const noexcept { return handle_; }

private:
    const Handle handle_;
};

BITMAPINFO infoOf(Long width, Long height) {
    BITMAPINFO info;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biSizeImage = static_cast<std::uint32_t>(width) * static_cast<std::uint32_t>(height) * 4;
    return info;
}

} // namespace

std::optional<BitmapPixels> GetBitmapPixels(IPictureDisp* picture) {
    const Handle bitmap = pictureHandle(picture);
    BITMAP record;
    if (gdi32().GetObjectA(bitmap, bytesOf(record)) == 0 || record.bmWidth <= 0 || record.bmHeight <= 0) {
        return std::nullopt;
    }
    BitmapPixels result{record.bmWidth, record.bmHeight, nullptr};
    result.pixels = std::make_unique_for_overwrite<std::uint32_t[]>(result.count());
    const std::span pixels(result.pixels.get(), result.count());
    const ScreenContext screen;
    if (screen.handle() == 0) {
        return std::nullopt;
    }
    BITMAPINFO info = infoOf(result.width, result.height);
    const auto lines = static_cast<std::uint32_t>(result.height);
    const Long read = gdi32().GetDIBits(screen.handle(), bitmap, 0, lines, std::as_writable_bytes(pixels), info, DIB_RGB_COLORS);
    if (read <= 0) {
        return std::nullopt;
    }
    // Rows that were not read are 0.
    const auto rows = static_cast<std::size_t>(std::min(read, result.height));
    std::ranges::fill(pixels.subspan(rows * static_cast<std::size_t>(result.width)), 0u);
    return result;
}

PixelSection::PixelSection(Long width, Long height) {
    const ScreenContext screen;
    std::byte* bits = nullptr;
    bitmap_ = gdi32().CreateDIBSection(screen.handle(), infoOf(width, height), DIB_RGB_COLORS, bits);
    if (bitmap_ != 0 && bits) {
        pixels_ = {reinterpret_cast<std::uint32_t*>(bits), static_cast<std::size_t>(width) * static_cast<std::size_t>(height)};
    }
}

PixelSection::~PixelSection() {
    if (bitmap_ != 0) {
        gdi32().DeleteObject(bitmap_);
    }
}

Ref<IPictureDisp> PixelSection::toPicture() {
    Ref<IPictureDisp> picture = modDrawing::PictureFromHandle(bitmap_, 0, false);
    if (picture) {
        bitmap_ = 0;
    }
    return picture;
}

} // namespace mox::server
