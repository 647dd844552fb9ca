#include "host/graphics/pixelformat.h"

#include <bit>
#include <cstring>
#include <limits>

namespace mox::host {

namespace {

constexpr Pixel white = 0xFFFFFF;

std::uint32_t bitsAt(const std::byte* row, int place, int bitsPerPixel) {
    const int bit = place * bitsPerPixel;
    return std::to_integer<std::uint32_t>(row[bit / 8]) >> (8 - bitsPerPixel - bit % 8) & ((1U << bitsPerPixel) - 1);
}

void setBitsAt(std::byte* row, int place, int bitsPerPixel, std::uint32_t value) {
    const int bit = place * bitsPerPixel;
    const int shift = 8 - bitsPerPixel - bit % 8;
    const auto mask = static_cast<std::byte>(((1U << bitsPerPixel) - 1) << shift);
    row[bit / 8] = (row[bit / 8] & ~mask) | static_cast<std::byte>(value << shift);
}

/// One channel as a number from 0 to 255.
std::uint32_t channel(std::uint32_t value, std::uint32_t mask) {
    if (mask == 0) {
        return 0;
    }
    const std::uint32_t most = mask >> std::countr_zero(mask);
    const std::uint64_t part = (value & mask) >> std::countr_zero(mask);
    return static_cast<std::uint32_t>((part * 255 + most / 2) / most);
}

std::uint32_t masked(std::uint32_t value, std::uint32_t mask) {
    if (mask == 0) {
        return 0;
    }
    const std::uint32_t most = mask >> std::countr_zero(mask);
    return static_cast<std::uint32_t>((std::uint64_t{value} * most + 127) / 255) << std::countr_zero(mask);
}

Pixel fromMasks(std::uint32_t value, const ChannelMasks& masks) {
    return channel(value, masks.red) << 16 | channel(value, masks.green) << 8 | channel(value, masks.blue);
}

std::uint32_t toMasks(Pixel pixel, const ChannelMasks& masks) {
    return masked(pixel >> 16 & 0xFF, masks.red) | masked(pixel >> 8 & 0xFF, masks.green) | masked(pixel & 0xFF, masks.blue);
}

int distance(Pixel a, Pixel b) {
    int sum = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int difference = static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        sum += difference * difference;
    }
    return sum;
}

std::uint32_t nearest(std::span<const Pixel> colors, Pixel pixel) {
    std::uint32_t best = 0;
    int least = std::numeric_limits<int>::max();
    for (std::uint32_t index = 0; index < colors.size() && least != 0; ++index) {
        if (const int here = distance(colors[index], pixel); here < least) {
            least = here;
            best = index;
        }
    }
    return best;
}

/// Remembers the last answer, as neighbours often have one colour.
class NearestColor {
public:
    explicit NearestColor(const BitmapFormat& format) : format_(format) {}

    std::uint32_t operator()(Pixel pixel) {
        pixel &= white;
        if (pixel != last_) {
            last_ = pixel;
            index_ = format_.bitsPerPixel == 1 && !format_.isSection ? (distance(pixel, white) < distance(pixel, 0) ? 1 : 0)
                                                                     : nearest(format_.colors, pixel);
        }
        return index_;
    }

private:
    const BitmapFormat& format_;
    Pixel last_ = ~Pixel{0};
    std::uint32_t index_ = 0;
};

} // namespace

void readPixels(const BitmapFormat& format, const std::byte* row, int x, std::span<Pixel> pixels) noexcept {
    const bool isMonochrome = format.bitsPerPixel == 1 && !format.isSection;
    int place = x;
    for (Pixel& pixel : pixels) {
        switch (format.bitsPerPixel) {
        case 32: {
            Pixel value = 0;
            std::memcpy(&value, row + std::ptrdiff_t{4} * place, 4);
            pixel = format.masks == ChannelMasks() ? value : fromMasks(value, format.masks);
            break;
        }
        case 24: {
            Pixel value = 0;
            std::memcpy(&value, row + std::ptrdiff_t{3} * place, 3);
            pixel = value;
            break;
        }
        case 16: {
            std::uint16_t value = 0;
            std::memcpy(&value, row + std::ptrdiff_t{2} * place, 2);
            pixel = fromMasks(value, format.masks);
            break;
        }
        default: {
            const std::uint32_t index = bitsAt(row, place, format.bitsPerPixel);
            pixel = isMonochrome ? (index != 0 ? white : 0) : format.colors[index];
        }
        }
        ++place;
    }
}

void writePixels(const BitmapFormat& format, std::byte* row, int x, std::span<const Pixel> pixels) noexcept {
    NearestColor indexOf(format);
    int place = x;
    for (const Pixel pixel : pixels) {
        switch (format.bitsPerPixel) {
        case 32: {
            const Pixel value = format.masks == ChannelMasks() ? pixel : toMasks(pixel, format.masks);
            std::memcpy(row + std::ptrdiff_t{4} * place, &value, 4);
            break;
        }
        case 24:
            std::memcpy(row + std::ptrdiff_t{3} * place, &pixel, 3);
            break;
        case 16: {
            const auto value = static_cast<std::uint16_t>(toMasks(pixel, format.masks));
            std::memcpy(row + std::ptrdiff_t{2} * place, &value, 2);
            break;
        }
        default:
            setBitsAt(row, place, format.bitsPerPixel, indexOf(pixel));
        }
        ++place;
    }
}

} // namespace mox::host
