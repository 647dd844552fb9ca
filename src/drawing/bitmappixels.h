// The pixels of bitmap pictures, and pictures of pixels.
#pragma once

#include "drawing/modDrawing.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace mox::server {

/// Pixels of 32 bits as they are in memory: blue in bits 0 to 7, green, red, a fourth byte; the bottom row first.
struct BitmapPixels {
    Long width = 0;
    Long height = 0;
    std::unique_ptr<std::uint32_t[]> pixels;

    std::size_t count() const noexcept { return static_cast<std::size_t>(width) * static_cast<std::size_t>(height); }
    std::span<const std::uint32_t> all() const noexcept { return {pixels.get(), count()}; }
};

/// Those of a bitmap picture; none if an operation fails.
std::optional<BitmapPixels> GetBitmapPixels(IPictureDisp* picture);

/// A new bitmap of 32 bits a pixel, all 0, that becomes a picture. It ends with this object before that.
class PixelSection {
public:
    PixelSection(Long width, Long height);
    PixelSection(const PixelSection&) = delete;
    PixelSection& operator=(const PixelSection&) = delete;
    ~PixelSection();

    /// Empty if there is no bitmap.
    std::span<std::uint32_t> pixels() const noexcept { return pixels_; }
    /// The picture, which owns the bitmap, or Nothing.
    Ref<IPictureDisp> toPicture();

private:
    Handle bitmap_ = 0;
    std::span<std::uint32_t> pixels_;
};

} // namespace mox::server
