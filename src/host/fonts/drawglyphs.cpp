#include "host/fonts/drawglyphs.h"

#include "host/fonts/glyphreader.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace mox::host {

namespace {

constexpr std::uint32_t oddBytes = 0xFF00FF;

/// Between two colours by a part of 256; the fourth byte of `ground` stays.
Pixel mixed(Pixel ground, Pixel color, std::uint32_t part) {
    const std::uint32_t rest = 256 - part;
    const std::uint32_t redBlue = ((ground & oddBytes) * rest + (color & oddBytes) * part) >> 8 & oddBytes;
    const std::uint32_t green = ((ground & 0xFF00) * rest + (color & 0xFF00) * part) >> 8 & 0xFF00;
    return (ground & 0xFF000000) | redBlue | green;
}

/// 0 to 255 as 0 to 256.
std::uint32_t partOf(std::uint8_t coverage) {
    return coverage + (coverage >> 7);
}

void blendGrey(Pixel* target, const std::uint8_t* coverage, int count, Pixel color) {
    for (int x = 0; x < count; ++x) {
        if (const std::uint8_t part = coverage[x]; part == 255) {
            target[x] = (target[x] & 0xFF000000) | color;
        } else if (part != 0) {
            target[x] = mixed(target[x], color, partOf(part));
        }
    }
}

void blendThirds(Pixel* target, const std::uint8_t* coverage, int count, Pixel color) {
    for (int x = 0; x < count; ++x, coverage += 3) {
        if ((coverage[0] | coverage[1] | coverage[2]) == 0) {
            continue;
        }
        const auto channel = [&](int shift, std::uint8_t part) {
            const std::uint32_t ground = target[x] >> shift & 0xFF;
            const std::uint32_t wanted = color >> shift & 0xFF;
            return (ground * (256 - partOf(part)) + wanted * partOf(part)) >> 8 << shift;
        };
        target[x] = (target[x] & 0xFF000000) | channel(16, coverage[0]) | channel(8, coverage[1]) | channel(0, coverage[2]);
    }
}

void blend(Pixel* target, const std::uint8_t* coverage, int channels, int count, Pixel color) {
    if (channels == 3) {
        blendThirds(target, coverage, count, color);
    } else {
        blendGrey(target, coverage, count, color);
    }
}

/// Pixels of other formats are mixed as plain ones and stored again.
void blendRow(Bitmap& target, int x, int y, const std::uint8_t* coverage, int channels, int count, Pixel color) {
    if (target.isPlain()) {
        blend(target.pixels(y) + x, coverage, channels, count, color);
        return;
    }
    std::array<Pixel, 256> pixels;
    for (int done = 0; done < count;) {
        const int some = std::min(count - done, static_cast<int>(pixels.size()));
        const std::span part(pixels.data(), static_cast<std::size_t>(some));
        target.read(x + done, y, part);
        blend(part.data(), coverage + static_cast<std::ptrdiff_t>(done) * channels, channels, some, color);
        target.write(x + done, y, part);
        done += some;
    }
}

void drawImage(Bitmap& target, const GlyphReader::Placed& placed, const pixman_box32_t& box, Pixel color) {
    const GlyphImage& image = *placed.image;
    const int left = placed.x + image.left;
    const int top = placed.y + image.top;
    const int fromX = std::max(left, box.x1);
    const int toX = std::min(left + image.width, box.x2);
    const int fromY = std::max(top, box.y1);
    const int toY = std::min(top + image.height, box.y2);
    if (fromX >= toX) {
        return;
    }
    for (int y = fromY; y < toY; ++y) {
        blendRow(target, fromX, y, image.row(y - top) + static_cast<std::ptrdiff_t>(fromX - left) * image.channels,
                 image.channels, toX - fromX, color);
    }
}

void drawSpan(Bitmap& target, int y, int x, int count, std::uint8_t coverage, Pixel color) {
    std::array<std::uint8_t, 256> row;
    row.fill(coverage);
    for (int done = 0; done < count;) {
        const int some = std::min(count - done, static_cast<int>(row.size()));
        blendRow(target, x + done, y, row.data(), 1, some, color);
        done += some;
    }
}

} // namespace

bool drawGlyphs(Bitmap& target, const TextRun& run, const Region& clip) {
    if (!run.typeface) {
        return false;
    }
    const Region* area = &clip;
    Region inside;
    if (const RECT bounds = clip.bounds(); intersection(bounds, target.bounds()) != bounds) {
        inside = clip;
        inside.intersect(target.bounds());
        area = &inside;
    }
    const Pixel color = toPixel(run.color) & 0xFFFFFF;
    GlyphReader reader(*run.typeface);
    for (const TextRun::Glyph& glyph : run.glyphs) {
        const auto placed = reader.place(glyph.index, glyph.position);
        for (const pixman_box32_t& box : area->boxes()) {
            if (placed.image) {
                drawImage(target, placed, box, color);
            } else if (placed.isLarge) {
                reader.drawLarge(
                    glyph.index, glyph.position, {box.x1, box.y1, box.x2, box.y2},
                    [&](int y, int x, int count, std::uint8_t coverage) { drawSpan(target, y, x, count, coverage, color); });
            }
        }
    }
    return true;
}

} // namespace mox::host
