#include "host/fonts/glyphraster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace mox::host {

namespace {

constexpr long pixel = 64;

long floorPixels(long place) {
    return place >> 6;
}
long ceilPixels(long place) {
    return (place + pixel - 1) >> 6;
}

/// A bitmap of FreeType over bytes of ours.
FT_Bitmap bitmapOver(std::span<std::uint8_t> bytes, int width, int height, int pitch, FT_Pixel_Mode mode) {
    FT_Bitmap bitmap{};
    bitmap.width = static_cast<unsigned>(width);
    bitmap.rows = static_cast<unsigned>(height);
    bitmap.pitch = pitch;
    bitmap.buffer = bytes.data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = static_cast<unsigned char>(mode);
    return bitmap;
}

bool renderPlain(FT_Library library, FT_Outline& outline, GlyphImage& image) {
    const int pitch = (image.width + 7) / 8;
    std::vector<std::uint8_t> bits(static_cast<std::size_t>(pitch) * static_cast<std::size_t>(image.height));
    FT_Bitmap bitmap = bitmapOver(bits, image.width, image.height, pitch, FT_PIXEL_MODE_MONO);
    if (FT_Outline_Get_Bitmap(library, &outline, &bitmap) != 0) {
        return false;
    }
    std::uint8_t* target = image.coverage.data();
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            *target++ = (bits[static_cast<std::size_t>(y * pitch + x / 8)] >> (7 - x % 8) & 1) != 0 ? 255 : 0;
        }
    }
    return true;
}

bool renderGrey(FT_Library library, FT_Outline& outline, int width, int height, std::span<std::uint8_t> bytes) {
    FT_Bitmap bitmap = bitmapOver(bytes, width, height, width, FT_PIXEL_MODE_GRAY);
    return FT_Outline_Get_Bitmap(library, &outline, &bitmap) == 0;
}

/// Spreads each third of a pixel over its neighbours, so that stems have no coloured edges. `width` counts thirds; the first one
/// is red.
void filterThirds(std::span<const std::uint8_t> from, int width, std::uint8_t* to) {
    constexpr std::array<int, 5> weights{0x08, 0x4D, 0x56, 0x4D, 0x08};
    const auto count = static_cast<std::ptrdiff_t>(from.size());
    for (std::ptrdiff_t row = 0; row < count; row += width) {
        for (std::ptrdiff_t x = 0; x < width; ++x) {
            int sum = 0;
            for (std::ptrdiff_t tap = 0; tap < 5; ++tap) {
                const std::ptrdiff_t place = x + tap - 2;
                sum += place >= 0 && place < width
                           ? weights[static_cast<std::size_t>(tap)] * from[static_cast<std::size_t>(row + place)]
                           : 0;
            }
            to[x / 3 * 4 + 2 - x % 3] = static_cast<std::uint8_t>(std::min(sum / 256, 255));
        }
        to += static_cast<std::ptrdiff_t>(width / 3) * 4;
    }
}

struct Extent {
    long left = 0;
    long right = 0;
    long top = 0;
    long bottom = 0;
};

/// In whole pixels; y up.
Extent extentOf(const FT_Outline& outline) {
    FT_BBox box{};
    FT_Outline_Get_CBox(&outline, &box);
    return {floorPixels(box.xMin), ceilPixels(box.xMax), ceilPixels(box.yMax), floorPixels(box.yMin)};
}

} // namespace

RECT outlineBounds(const FT_Outline& outline) {
    if (outline.n_points == 0) {
        return {};
    }
    const Extent extent = extentOf(outline);
    const auto number = [](long value) { return static_cast<std::int32_t>(std::clamp(value, -(1L << 28), 1L << 28)); };
    return {number(extent.left), number(-extent.top), number(extent.right), number(-extent.bottom)};
}

GlyphImage renderGlyph(FT_Library library, FT_Outline& outline, TextQuality quality) {
    const bool isSubpixel = quality == TextQuality::subpixel;
    Extent extent = extentOf(outline);
    // The filter reaches into the next pixels, and the raster of single bits may set some beside small shapes.
    if (quality != TextQuality::grey) {
        extent.left -= 1;
        extent.right += 1;
    }
    const long width = extent.right - extent.left;
    const long height = extent.top - extent.bottom;
    if (outline.n_points == 0 || width <= 0 || height <= 0 || width > mostImagePixels || height > mostImagePixels ||
        width * height > mostImagePixels) {
        return {};
    }
    GlyphImage image{.left = static_cast<int>(extent.left),
                     .top = static_cast<int>(-extent.top),
                     .width = static_cast<int>(width),
                     .height = static_cast<int>(height),
                     .channels = isSubpixel ? 4 : 1};
    image.coverage.resize(static_cast<std::size_t>(width * height * image.channels));
    FT_Outline_Translate(&outline, -extent.left * pixel, -extent.bottom * pixel);
    bool isDone = false;
    if (isSubpixel) {
        const FT_Matrix thirds{3 * 0x10000, 0, 0, 0x10000};
        FT_Outline_Transform(&outline, &thirds);
        std::vector<std::uint8_t> sharp(static_cast<std::size_t>(3 * width * height));
        isDone = renderGrey(library, outline, 3 * image.width, image.height, sharp);
        filterThirds(sharp, 3 * image.width, image.coverage.data());
    } else if (quality == TextQuality::plain) {
        isDone = renderPlain(library, outline, image);
    } else {
        isDone = renderGrey(library, outline, image.width, image.height, image.coverage);
    }
    return isDone ? image : GlyphImage();
}

void renderSpans(FT_Library library, FT_Outline& outline, PathPoint origin, const RECT& clip, const CoverageSpan& span) {
    struct Target {
        const RECT& clip;
        const CoverageSpan& span;
    };
    Target target{clip, span};
    // Coordinates from the clip's lower left corner, so that they stay small.
    FT_Outline_Translate(&outline, std::lround((origin.x - clip.left) * pixel), std::lround((clip.bottom - origin.y) * pixel));
    FT_Raster_Params parameters{};
    parameters.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
    parameters.clip_box = {0, 0, clip.right - clip.left, clip.bottom - clip.top};
    parameters.user = &target;
    parameters.gray_spans = [](int y, int count, const FT_Span* spans, void* user) {
        const Target& place = *static_cast<const Target*>(user);
        const int height = place.clip.bottom - place.clip.top;
        for (const FT_Span& one : std::span(spans, static_cast<std::size_t>(count))) {
            if (y >= 0 && y < height) {
                place.span(place.clip.bottom - 1 - y, place.clip.left + one.x, one.len, one.coverage);
            }
        }
    };
    FT_Outline_Render(library, &outline, &parameters);
}

} // namespace mox::host
