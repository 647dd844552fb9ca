#include "host/icons/iconimage.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace mox::host {

namespace {

/// Weights of one direction are fractions of this.
constexpr std::int64_t whole = 4096;

/// Which pixels of the source make up a place in the target.
struct Mixture {
    int first = 0;
    std::vector<std::int64_t> weights;
};

/// The mean of all source pixels below a target pixel, by how much of each there is.
Mixture meanOf(std::int64_t place, int source, std::int64_t size) {
    const std::int64_t from = place * source;
    const std::int64_t to = from + source;
    Mixture mixture{static_cast<int>(from / size), {}};
    std::int64_t before = 0;
    for (std::int64_t pixel = mixture.first; pixel * size < to; ++pixel) {
        // Rounding the sums and not the weights keeps the whole.
        const std::int64_t sum = ((std::min(to, (pixel + 1) * size) - from) * whole + source / 2) / source;
        mixture.weights.push_back(sum - before);
        before = sum;
    }
    return mixture;
}

/// The two source pixels whose centres are around that of a target pixel.
Mixture betweenNeighbors(std::int64_t place, int source, std::int64_t size) {
    const std::int64_t center = std::clamp<std::int64_t>((2 * place + 1) * source - size, 0, 2 * size * (source - 1));
    const std::int64_t second = (center % (2 * size) * whole + size) / (2 * size);
    Mixture mixture{static_cast<int>(center / (2 * size)), {whole - second}};
    if (second != 0) {
        mixture.weights.push_back(second);
    }
    return mixture;
}

/// For each place from `from` to before `to`, of a target that begins at `origin`.
std::vector<Mixture> mixtures(int source, std::int64_t origin, std::int64_t extent, std::int32_t from, std::int32_t to) {
    const std::int64_t size = std::abs(extent);
    std::vector<Mixture> result;
    result.reserve(static_cast<std::size_t>(to - from));
    for (std::int64_t at = from; at < to; ++at) {
        const std::int64_t place = extent > 0 ? at - origin : origin - 1 - at;
        result.push_back(size < source ? meanOf(place, source, size) : betweenNeighbors(place, source, size));
    }
    return result;
}

Pixel mixed(const Bitmap& image, const Mixture& columns, const Mixture& rows) {
    std::array<std::int64_t, 4> sums{}; // blue, green and red multiplied by alpha, alpha
    for (std::size_t row = 0; row < rows.weights.size(); ++row) {
        const Pixel* pixels = image.pixels(rows.first + static_cast<int>(row)) + columns.first;
        for (std::size_t column = 0; column < columns.weights.size(); ++column) {
            const std::int64_t weight = rows.weights[row] * columns.weights[column];
            const std::int64_t alpha = pixels[column] >> 24;
            for (std::size_t channel = 0; channel < 3; ++channel) {
                sums[channel] += weight * alpha * (pixels[column] >> (8 * channel) & 0xFF);
            }
            sums[3] += weight * alpha;
        }
    }
    constexpr std::int64_t all = whole * whole;
    auto pixel = static_cast<Pixel>((sums[3] + all / 2) / all) << 24;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        pixel |= static_cast<Pixel>((sums[channel] + all * 255 / 2) / (all * 255)) << (8 * channel);
    }
    return pixel;
}

Pixel multiplied(Pixel pixel) {
    const Pixel alpha = pixel >> 24;
    Pixel result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        result |= ((pixel >> shift & 0xFF) * alpha + 127) / 255 << shift;
    }
    return result;
}

/// The usual case, without a change of size.
void copyMultiplied(const Bitmap& image, POINT from, Bitmap& target) {
    for (int y = 0; y < target.height(); ++y) {
        const Pixel* row = image.pixels(from.y + y) + from.x;
        std::transform(row, row + target.width(), target.pixels(y), multiplied);
    }
}

/// The colours as they were before alpha was multiplied in.
Pixel divided(Pixel pixel) {
    const Pixel alpha = pixel >> 24;
    Pixel result = alpha << 24;
    for (int shift = 0; shift < 24 && alpha != 0; shift += 8) {
        result |= std::min<Pixel>(255, ((pixel >> shift & 0xFF) * 255 + alpha / 2) / alpha) << shift;
    }
    return result;
}

} // namespace

std::shared_ptr<Bitmap> scaledPart(const Bitmap& image, const SignedRect& target, const RECT& part) {
    auto result = Bitmap::create(part.right - part.left, part.bottom - part.top);
    if (!result) {
        return nullptr;
    }
    if (target.cx == image.width() && target.cy == image.height()) {
        copyMultiplied(image, {part.left - target.x, part.top - target.y}, *result);
        return result;
    }
    const std::vector<Mixture> columns = mixtures(image.width(), target.x, target.cx, part.left, part.right);
    const std::vector<Mixture> rows = mixtures(image.height(), target.y, target.cy, part.top, part.bottom);
    for (int y = 0; y < result->height(); ++y) {
        std::ranges::transform(columns, result->pixels(y),
                               [&](const Mixture& column) { return mixed(image, column, rows[static_cast<std::size_t>(y)]); });
    }
    return result;
}

std::shared_ptr<Bitmap> resized(const Bitmap& image, int width, int height) {
    auto result = scaledPart(image, {0, 0, width, height}, {0, 0, width, height});
    for (int y = 0; result && y < height; ++y) {
        const std::span row(result->pixels(y), static_cast<std::size_t>(width));
        std::ranges::transform(row, row.begin(), divided);
    }
    return result;
}

RECT areaOf(const SignedRect& target) noexcept {
    return {std::min(target.x, target.x + target.cx), std::min(target.y, target.y + target.cy),
            std::max(target.x, target.x + target.cx), std::max(target.y, target.y + target.cy)};
}

} // namespace mox::host
