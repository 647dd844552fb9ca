#include "host/icons/vectordrawing.h"

#include "host/icons/figures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace mox::host {

namespace {

constexpr double grid = 32;
/// Lines of a row whose parts inside are summed up.
constexpr int linesInRow = 16;

/// Red, green and blue multiplied by alpha, and alpha, from 0 to 1.
using Light = std::array<double, 4>;

Light toLight(Pixel color) {
    const double alpha = (color >> 24) / 255.0;
    return {(color >> 16 & 0xFF) / 255.0 * alpha, (color >> 8 & 0xFF) / 255.0 * alpha, (color & 0xFF) / 255.0 * alpha, alpha};
}

Pixel toPixel(const Light& light) {
    const double alpha = light[3];
    const auto byte = [](double value) { return static_cast<Pixel>(std::lround(std::clamp(value, 0.0, 1.0) * 255)); };
    const Pixel opacity = byte(alpha);
    return opacity == 0 ? 0 : opacity << 24 | byte(light[0] / alpha) << 16 | byte(light[1] / alpha) << 8 | byte(light[2] / alpha);
}

/// How much of each pixel of a row is inside, from 0 to 1.
class RowCoverage {
public:
    RowCoverage(const std::vector<Polygon>& polygons, int width) : polygons_(polygons), parts_(static_cast<std::size_t>(width)) {}

    const std::vector<double>& of(int row) {
        std::ranges::fill(parts_, 0);
        for (int line = 0; line < linesInRow; ++line) {
            addLine(row + (line + 0.5) / linesInRow);
        }
        return parts_;
    }

private:
    struct Crossing {
        double x;
        int direction;
    };

    void addLine(double y) {
        crossings_.clear();
        for (const Polygon& polygon : polygons_) {
            for (std::size_t i = 0; i < polygon.size(); ++i) {
                addCrossing(polygon[i], polygon[(i + 1) % polygon.size()], y);
            }
        }
        std::ranges::sort(crossings_, {}, &Crossing::x);
        int winding = 0;
        double from = 0;
        for (const Crossing& crossing : crossings_) {
            if (winding == 0) {
                from = crossing.x;
            }
            winding += crossing.direction;
            if (winding == 0) {
                addSpan(from, crossing.x);
            }
        }
    }

    void addCrossing(PathPoint a, PathPoint b, double y) {
        if ((a.y <= y) != (b.y <= y)) {
            crossings_.push_back({a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x), a.y <= y ? 1 : -1});
        }
    }

    void addSpan(double from, double to) {
        from = std::clamp(from, 0.0, static_cast<double>(parts_.size()));
        to = std::clamp(to, 0.0, static_cast<double>(parts_.size()));
        for (double pixel = std::floor(from); pixel < to; ++pixel) {
            parts_[static_cast<std::size_t>(pixel)] += (std::min(to, pixel + 1) - std::max(from, pixel)) / linesInRow;
        }
    }

    const std::vector<Polygon>& polygons_;
    std::vector<double> parts_;
    std::vector<Crossing> crossings_;
};

class Drawing {
public:
    Drawing(int width, int height)
        : width_(width), height_(height), lights_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

    void add(const DrawnArea& area) {
        const std::vector<Polygon> polygons = readFigures(area.figures, width_ / grid, height_ / grid);
        double top = std::numeric_limits<double>::max();
        double bottom = std::numeric_limits<double>::lowest();
        for (const Polygon& polygon : polygons) {
            for (const PathPoint& point : polygon) {
                top = std::min(top, point.y);
                bottom = std::max(bottom, point.y);
            }
        }
        RowCoverage coverage(polygons, width_);
        const int first = static_cast<int>(std::clamp(std::floor(top), 0.0, static_cast<double>(height_)));
        const int end = static_cast<int>(std::clamp(std::ceil(bottom), 0.0, static_cast<double>(height_)));
        for (int y = first; y < end; ++y) {
            const double place = std::clamp((y + 0.5 - top) / (bottom - top), 0.0, 1.0);
            mixIn(y, coverage.of(y), between(toLight(area.top), toLight(area.bottom), place));
        }
    }

    void write(Bitmap& bitmap) const {
        for (int y = 0; y < height_; ++y) {
            const Light* row = rowOf(y);
            std::transform(row, row + width_, bitmap.pixels(y), toPixel);
        }
    }

private:
    static Light between(const Light& a, const Light& b, double place) {
        Light light{};
        std::ranges::transform(a, b, light.begin(), [place](double from, double to) { return from + (to - from) * place; });
        return light;
    }

    void mixIn(int y, const std::vector<double>& parts, const Light& light) {
        Light* row = lights_.data() + (rowOf(y) - lights_.data());
        for (const double part : parts) {
            const double rest = 1 - light[3] * part;
            std::ranges::transform(*row, light, row->begin(),
                                   [&](double below, double above) { return below * rest + above * part; });
            ++row;
        }
    }

    const Light* rowOf(int y) const { return lights_.data() + static_cast<std::ptrdiff_t>(y) * width_; }

    const int width_;
    const int height_;
    std::vector<Light> lights_;
};

} // namespace

std::shared_ptr<Bitmap> drawAreas(std::span<const DrawnArea> areas, int width, int height) {
    auto bitmap = Bitmap::create(width, height);
    if (bitmap) {
        Drawing drawing(width, height);
        std::ranges::for_each(areas, [&](const DrawnArea& area) { drawing.add(area); });
        drawing.write(*bitmap);
    }
    return bitmap;
}

} // namespace mox::host
