// Pixels in memory.
#pragma once

#include "automation/objects/export.h"

#include "platform/gditypes.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace mox::host {

/// A pixel as bitmaps of 32 bits hold it: blue in bits 0 to 7, green, red, and a fourth byte that drawing leaves alone.
using Pixel = std::uint32_t;

constexpr Pixel toPixel(platform::COLORREF color) noexcept {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
constexpr platform::COLORREF toColor(Pixel pixel) noexcept {
    return toPixel(pixel);
}

/// The bits of a pixel of 16 or 32 bits that hold each channel.
struct ChannelMasks {
    std::uint32_t red = 0xFF0000;
    std::uint32_t green = 0xFF00;
    std::uint32_t blue = 0xFF;
    bool operator==(const ChannelMasks&) const = default;
};
inline constexpr ChannelMasks masks555{0x7C00, 0x3E0, 0x1F};
inline constexpr ChannelMasks masks565{0xF800, 0x7E0, 0x1F};

/// What a bitmap is made of.
struct BitmapFormat {
    int width = 0;
    int height = 0;
    /// 1, 4, 8, 16, 24 or 32.
    int bitsPerPixel = 32;
    /// True: a device-independent section, whose pixels the application has in hand, with a colour table of its own. False: a
    /// bitmap of the device. One of those with 1 bit a pixel has no colours: it is drawn in the text colour (0) and the
    /// background colour (1) of the context that it is copied to.
    bool isSection = false;
    /// The order of rows in memory. Bitmaps of the device run from the top down.
    bool isTopDown = true;
    /// Of 16 and 32 bits.
    ChannelMasks masks{};
    /// Of up to 8 bits, as 0x00RRGGBB, missing ones black.
    std::vector<Pixel> colors{};
};

/// A rectangle of pixels, zeroed at first. Rows are an even number of bytes long, of sections a multiple of 4.
class MOX_API Bitmap {
public:
    struct Free {
        void operator()(std::byte* bytes) const noexcept;
    };
    /// For `create` and `part` alone: only they can make one.
    class Made {
        friend class Bitmap;
        Made() = default;
    };
    Bitmap(Made, BitmapFormat format, std::size_t rowBytes, std::unique_ptr<std::byte, Free> bytes) noexcept;

    /// Null if there is no memory, for sizes below 1 or of 2 GiB and more, or another number of bits.
    static std::shared_ptr<Bitmap> create(BitmapFormat format);
    /// The usual one, of 32 bits.
    static std::shared_ptr<Bitmap> create(int width, int height);

    /// A rectangle of the pixels of a plain bitmap with its rows from the top down: it shows them and changes them. Null if the
    /// rectangle is empty or not within the bitmap.
    static std::shared_ptr<Bitmap> part(const std::shared_ptr<Bitmap>& whole, const platform::RECT& area);

    /// Another one with the same pixels; null if there is no memory.
    std::shared_ptr<Bitmap> copy() const;

    const BitmapFormat& format() const noexcept { return format_; }
    int width() const noexcept { return format_.width; }
    int height() const noexcept { return format_.height; }
    platform::RECT bounds() const noexcept { return {0, 0, format_.width, format_.height}; }
    int bitsPerPixel() const noexcept { return format_.bitsPerPixel; }
    bool isSection() const noexcept { return format_.isSection; }
    bool isTopDown() const noexcept { return format_.isTopDown; }
    /// True if its pixels have no colours of their own.
    bool isMonochrome() const noexcept { return format_.bitsPerPixel == 1 && !format_.isSection; }
    /// True for pixels of 32 bits with the usual masks, which drawing handles as they are.
    bool isPlain() const noexcept { return isPlain_; }
    const ChannelMasks& masks() const noexcept { return format_.masks; }
    std::span<const Pixel> colors() const noexcept { return format_.colors; }
    std::span<Pixel> colors() noexcept { return format_.colors; }

    /// Bytes of one row; of a part those of the whole.
    std::size_t rowBytes() const noexcept { return rowBytes_; }
    /// All bytes in memory order.
    std::span<std::byte> bytes() const noexcept;
    /// The bytes from a row on to the one below it; below 0 for rows from the bottom up.
    std::ptrdiff_t stride() const noexcept { return stride_; }
    /// A row counted from the top; it has to be there.
    std::byte* row(int y) const noexcept { return first_ + y * stride_; }
    /// Of a bitmap of 32 bits.
    Pixel* pixels(int y) const noexcept { return reinterpret_cast<Pixel*>(row(y)); }

    /// Converts `count` pixels of a row from `x` on, which have to be there, to plain ones. Monochrome pixels give 0 and
    /// 0xFFFFFF.
    void read(int x, int y, std::span<Pixel> pixels) const noexcept;
    /// Stores plain pixels, each as the nearest that the format has. Monochrome bitmaps get 1 for what is nearer to white.
    void write(int x, int y, std::span<const Pixel> pixels) noexcept;

private:
    BitmapFormat format_;
    bool isPlain_;
    std::size_t rowBytes_;
    std::unique_ptr<std::byte, Free> bytes_;
    std::ptrdiff_t stride_;
    std::byte* first_;
    /// Of a part: holds the pixels.
    std::shared_ptr<Bitmap> whole_;
};

} // namespace mox::host
