// Copies of pixels as their definitions say it, one pixel at a time, to compare the fast ones with.
#pragma once

#include "host/graphics/canvas.h"

#include <cmath>
#include <random>

namespace mox::test {

/// All pixels of a bitmap as plain ones.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<host::Pixel> pixels;

    explicit Picture(const host::Bitmap& bitmap)
        : width(bitmap.width()), height(bitmap.height()),
          pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
        for (int y = 0; y < height; ++y) {
            bitmap.read(0, y, std::span(pixels).subspan(static_cast<std::size_t>(y * width), static_cast<std::size_t>(width)));
        }
    }
    bool has(std::int64_t x, std::int64_t y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    host::Pixel& at(std::int64_t x, std::int64_t y) { return pixels[static_cast<std::size_t>(y * width + x)]; }
    host::Pixel at(std::int64_t x, std::int64_t y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

/// A direction: which places of the source are under a place of the target.
struct ModelAxis {
    std::int64_t to, toExtent, from, fromExtent;

    std::int64_t count() const { return std::abs(toExtent); }
    std::int64_t sourceCount() const { return std::abs(fromExtent); }
    std::int64_t first() const { return std::min(to, to + toExtent); }
    std::int64_t sourceFirst() const { return std::min(from, from + fromExtent); }
    bool reaches(std::int64_t place) const { return place >= first() && place < first() + count() && sourceCount() > 0; }
    std::int64_t index(std::int64_t place) const {
        return (toExtent < 0) != (fromExtent < 0) ? first() + count() - 1 - place : place - first();
    }
    std::int64_t centre(std::int64_t place) const {
        const double exact =
            (static_cast<double>(index(place)) + 0.5) * static_cast<double>(sourceCount()) / static_cast<double>(count());
        return sourceFirst() + static_cast<std::int64_t>(std::floor(exact));
    }
    /// Equal parts of the place, each by the place of the source that it lies in.
    std::vector<std::int64_t> parts(std::int64_t place) const {
        std::vector<std::int64_t> places;
        for (std::int64_t part = 0; part < sourceCount(); ++part) {
            places.push_back(sourceFirst() + (index(place) * sourceCount() + part) / count());
        }
        return places;
    }
    /// What would be left out, and what stays, as far as it is there; the centre's if nothing is.
    std::vector<std::int64_t> merged(std::int64_t place, std::int64_t size) const {
        std::vector<std::int64_t> places;
        for (std::int64_t source = 0; source < sourceCount(); ++source) {
            // The last place of the target whose share begins at or before this one's.
            std::int64_t owner = 0;
            for (std::int64_t i = 0; i < count(); ++i) {
                owner = i * sourceCount() / count() <= source ? i : owner;
            }
            const std::int64_t at = sourceFirst() + source;
            if (owner == index(place) && at >= 0 && at < size) {
                places.push_back(at);
            }
        }
        return sourceCount() > count() && !places.empty() ? places : std::vector{centre(place)};
    }
};

/// A copy onto a bitmap.
class CopyModel {
public:
    CopyModel(const host::Bitmap& target, const host::ImageCopy& copy)
        : target_(target),
          copy_(copy), x_{copy.target.x, copy.target.cx, copy.area.x, copy.area.cx}, y_{copy.target.y, copy.target.cy,
                                                                                        copy.area.y, copy.area.cy},
          source_(*copy.source) {
        const bool staysMonochrome = target.isMonochrome() && copy.kind == host::ImageCopy::Kind::raster;
        if (copy.source->isMonochrome() && !staysMonochrome) {
            for (host::Pixel& pixel : source_.pixels) {
                pixel = host::toPixel(pixel == 0 ? copy.textColor : copy.backColor);
            }
        }
    }

    /// What the target has afterwards.
    Picture result(const host::Region& clip) const {
        Picture picture(target_);
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                const bool isReached = clip.contains(host::POINT{x, y}) && x_.reaches(x) && y_.reaches(y);
                if (isReached && source_.has(x_.centre(x), y_.centre(y))) {
                    picture.at(x, y) = stored(changed(x, y, picture.at(x, y)));
                }
            }
        }
        return picture;
    }

private:
    using Kind = host::ImageCopy::Kind;

    host::Pixel sample(int x, int y) const {
        const bool isStretched = x_.count() != x_.sourceCount() || y_.count() != y_.sourceCount();
        if (isStretched && copy_.kind != Kind::transparent && copy_.stretchMode == platform::HALFTONE) {
            return mean(x, y);
        }
        const bool isMerging = copy_.stretchMode == platform::BLACKONWHITE || copy_.stretchMode == platform::WHITEONBLACK;
        if (isStretched && copy_.kind == Kind::raster && isMerging) {
            const bool isAnd = copy_.stretchMode == platform::BLACKONWHITE;
            host::Pixel result = isAnd ? 0xFFFFFFFF : 0;
            for (const std::int64_t row : y_.merged(y, source_.height)) {
                for (const std::int64_t column : x_.merged(x, source_.width)) {
                    result = isAnd ? result & source_.at(column, row) : result | source_.at(column, row);
                }
            }
            return result;
        }
        return source_.at(x_.centre(x), y_.centre(y));
    }

    host::Pixel mean(int x, int y) const {
        std::array<std::uint64_t, 4> sums{};
        std::uint64_t count = 0;
        for (const std::int64_t row : y_.parts(y)) {
            for (const std::int64_t column : x_.parts(x)) {
                if (source_.has(column, row)) {
                    ++count;
                    for (std::size_t channel = 0; channel < 4; ++channel) {
                        sums[channel] += source_.at(column, row) >> (8 * channel) & 0xFF;
                    }
                }
            }
        }
        host::Pixel result = 0;
        for (std::size_t channel = 0; channel < 4; ++channel) {
            result |= static_cast<host::Pixel>((2 * sums[channel] + count) / (2 * count)) << (8 * channel);
        }
        return result;
    }

    host::Pixel pattern(int x, int y) const {
        const host::Paint& paint = copy_.paint;
        if (paint.brush.style != platform::BS_PATTERN) {
            return host::toPixel(paint.brush.color);
        }
        const Picture picture(*paint.brush.pattern);
        const auto wrap = [](int distance, int size) { return (distance % size + size) % size; };
        const host::Pixel pixel = picture.at(wrap(x - paint.origin.x, picture.width), wrap(y - paint.origin.y, picture.height));
        return paint.brush.pattern->isMonochrome() && !target_.isMonochrome()
                   ? host::toPixel(pixel == 0 ? paint.textColor : paint.backColor)
                   : pixel;
    }

    host::Pixel changed(int x, int y, host::Pixel before) const {
        host::Pixel source = sample(x, y);
        if (copy_.kind == Kind::transparent) {
            return (source & 0xFFFFFF) == host::toPixel(copy_.transparentColor) ? before : source;
        }
        if (copy_.kind == Kind::blend) {
            return blended(source, before);
        }
        if (target_.isMonochrome() && !copy_.source->isMonochrome()) {
            source = (source & 0xFFFFFF) == host::toPixel(copy_.sourceBackColor) ? 0xFFFFFF : 0;
        }
        const host::Pixel operand = raw(pattern(x, y));
        const host::Pixel result = combined(operand, raw(source), raw(before));
        const bool isSourceless = (copy_.rop >> 18 & 0x33) == (copy_.rop >> 16 & 0x33);
        if (target_.isPlain() && isSourceless) {
            return (result & 0xFFFFFF) | (before & 0xFF000000);
        }
        return fromRaw(result);
    }

    host::Pixel combined(host::Pixel operand, host::Pixel source, host::Pixel before) const {
        host::Pixel result = 0;
        for (int bit = 0; bit < 32; ++bit) {
            const unsigned place = (operand >> bit & 1) * 4 + (source >> bit & 1) * 2 + (before >> bit & 1);
            result |= (copy_.rop >> 16 >> place & 1) << bit;
        }
        return result;
    }

    host::Pixel blended(host::Pixel source, host::Pixel before) const {
        const double constant = copy_.blend.SourceConstantAlpha;
        const auto byte = [](host::Pixel pixel, int channel) { return static_cast<double>(pixel >> (8 * channel) & 0xFF); };
        host::Pixel result = 0;
        for (int channel = 0; channel < 4; ++channel) {
            double sum = 0;
            if (copy_.blend.AlphaFormat == 0) {
                sum = std::round((byte(source, channel) * constant + byte(before, channel) * (255 - constant)) / 255);
            } else {
                const double alpha = std::round(byte(source, 3) * constant / 255);
                sum =
                    std::round(byte(source, channel) * constant / 255) + std::round(byte(before, channel) * (255 - alpha) / 255);
            }
            result |= static_cast<host::Pixel>(std::min(sum, 255.0)) << (8 * channel);
        }
        return result;
    }

    std::shared_ptr<host::Bitmap> onePixel() const {
        return host::Bitmap::create({.width = 1,
                                     .height = 1,
                                     .bitsPerPixel = target_.bitsPerPixel(),
                                     .isSection = target_.isSection(),
                                     .masks = target_.masks(),
                                     .colors = {target_.colors().begin(), target_.colors().end()}});
    }
    /// As the target's format keeps it.
    host::Pixel stored(host::Pixel pixel) const {
        const auto one = onePixel();
        one->write(0, 0, {&pixel, 1});
        one->read(0, 0, {&pixel, 1});
        return pixel;
    }
    bool hasTable() const { return target_.bitsPerPixel() <= 8 && !target_.isMonochrome(); }
    /// The bytes of a pixel as a number; a colour of a table stays one.
    host::Pixel raw(host::Pixel pixel) const {
        if (hasTable()) {
            return pixel;
        }
        const auto one = onePixel();
        one->write(0, 0, {&pixel, 1});
        host::Pixel number = 0;
        for (int i = 0; i < std::max(1, target_.bitsPerPixel() / 8); ++i) {
            number |= std::to_integer<host::Pixel>(one->row(0)[i]) << (8 * i);
        }
        return number;
    }
    host::Pixel fromRaw(host::Pixel number) const {
        if (hasTable()) {
            return stored(number);
        }
        const auto one = onePixel();
        for (int i = 0; i < std::max(1, target_.bitsPerPixel() / 8); ++i) {
            one->row(0)[i] = static_cast<std::byte>(number >> (8 * i));
        }
        host::Pixel pixel = 0;
        one->read(0, 0, {&pixel, 1});
        return pixel;
    }

    const host::Bitmap& target_;
    const host::ImageCopy& copy_;
    const ModelAxis x_;
    const ModelAxis y_;
    Picture source_;
};

} // namespace mox::test
