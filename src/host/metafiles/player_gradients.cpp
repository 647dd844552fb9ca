#include "host/graphics/rastercanvas.h"
#include "host/metafiles/enhancedplayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace mox::host {

namespace {

constexpr std::size_t boundsSize = 16;
/// 0 is from left to right.
constexpr std::uint32_t vertical = 1;
constexpr std::uint32_t triangles = 2;
/// The most pixels of a triangle that are drawn at once.
constexpr std::int64_t mostPixels = std::int64_t{1} << 24;

struct Vertex {
    POINT place;
    /// Red, green and blue up to 65535.
    std::array<double, 3> color{};
};

Vertex readVertex(RecordReader& record) {
    Vertex vertex{record.point()};
    for (double& channel : vertex.color) {
        channel = record.u16();
    }
    record.skip(2);
    return vertex;
}

std::array<double, 3> mixed(const std::array<double, 3>& a, const std::array<double, 3>& b, double part) {
    std::array<double, 3> color{};
    for (std::size_t channel = 0; channel < color.size(); ++channel) {
        color[channel] = a[channel] + (b[channel] - a[channel]) * part;
    }
    return color;
}

platform::COLORREF toColor(const std::array<double, 3>& color) {
    const auto byte = [](double value) { return static_cast<std::uint32_t>(std::clamp(value, 0.0, 65535.0)) >> 8; };
    return byte(color[0]) | byte(color[1]) << 8 | byte(color[2]) << 16;
}

/// Fills from one vertex to the other in stripes, at most as many as there are pixels or colours.
bool fillRectangle(Stage& stage, const Vertex& first, const Vertex& second, bool isVertical) {
    const bool isOrdered = isVertical ? first.place.y <= second.place.y : first.place.x <= second.place.x;
    const Vertex& low = isOrdered ? first : second;
    const Vertex& high = isOrdered ? second : first;
    const RECT area = stage
                          .toPixels({std::min(low.place.x, high.place.x), std::min(low.place.y, high.place.y),
                                     std::max(low.place.x, high.place.x), std::max(low.place.y, high.place.y)})
                          .bounds();
    const std::int32_t start = isVertical ? area.top : area.left;
    const std::int32_t length = (isVertical ? area.bottom : area.right) - start;
    constexpr std::int32_t mostStripes = 256;
    const std::int32_t stripes = std::min(length, mostStripes);
    const Stage::InPixels inPixels(stage);
    bool isDrawn = true;
    for (std::int32_t stripe = 0; stripe < stripes; ++stripe) {
        const auto edge = [&](std::int32_t number) {
            return start + static_cast<std::int32_t>(std::int64_t{length} * number / stripes);
        };
        RECT part = area;
        (isVertical ? part.top : part.left) = edge(stripe);
        (isVertical ? part.bottom : part.right) = edge(stripe + 1);
        const Brush brush{.color = toColor(mixed(low.color, high.color, static_cast<double>(stripe) / stripes))};
        isDrawn = stage.target().fillRect(part, brush) && isDrawn;
    }
    return isDrawn;
}

/// Weights of the corners at a place; none where it is outside.
class Triangle {
public:
    explicit Triangle(const std::array<PathPoint, 3>& corners) : corners_(corners) {
        area_ = cross(corners_[0], corners_[1], corners_[2]);
    }

    bool isFlat() const { return area_ == 0; }
    std::optional<std::array<double, 3>> weights(PathPoint place) const {
        const double a = cross(corners_[1], corners_[2], place) / area_;
        const double b = cross(corners_[2], corners_[0], place) / area_;
        const double c = 1 - a - b;
        return a >= 0 && b >= 0 && c >= 0 ? std::optional(std::array{a, b, c}) : std::nullopt;
    }

private:
    static double cross(PathPoint a, PathPoint b, PathPoint c) { return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x); }

    std::array<PathPoint, 3> corners_;
    double area_ = 0;
};

std::shared_ptr<Bitmap> shaded(const Triangle& triangle, const std::array<Vertex, 3>& vertices, const RECT& area) {
    auto bitmap = Bitmap::create(area.right - area.left, area.bottom - area.top);
    for (std::int32_t y = area.top; bitmap && y < area.bottom; ++y) {
        Pixel* pixel = bitmap->pixels(y - area.top);
        for (std::int32_t x = area.left; x < area.right; ++x, ++pixel) {
            if (const auto weights = triangle.weights({x + 0.5, y + 0.5})) {
                std::array<double, 3> color{};
                for (std::size_t channel = 0; channel < 3; ++channel) {
                    for (std::size_t corner = 0; corner < 3; ++corner) {
                        color[channel] += (*weights)[corner] * vertices[corner].color[channel];
                    }
                }
                *pixel = toPixel(toColor(color)) | 0xFF000000;
            }
        }
    }
    return bitmap;
}

bool fillTriangle(Stage& stage, const std::array<Vertex, 3>& vertices) {
    DeviceContext& target = stage.target();
    std::array<PathPoint, 3> corners;
    for (std::size_t corner = 0; corner < 3; ++corner) {
        const POINT place = target.toDevice(vertices[corner].place);
        corners[corner] = {static_cast<double>(place.x), static_cast<double>(place.y)};
    }
    const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x});
    const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
    const RECT area = intersection({static_cast<std::int32_t>(left), static_cast<std::int32_t>(top),
                                    static_cast<std::int32_t>(right), static_cast<std::int32_t>(bottom)},
                                   target.clip().bounds());
    const Triangle triangle(corners);
    if (triangle.isFlat() || isEmpty(area)) {
        return true;
    }
    if ((std::int64_t{area.right} - area.left) * (std::int64_t{area.bottom} - area.top) > mostPixels) {
        return false;
    }
    const auto bitmap = shaded(triangle, vertices, area);
    if (!bitmap) {
        return false;
    }
    const DeviceContext memory(target.graphics(), DeviceContext::Kind::memory, target.sharedDevice(),
                               std::make_shared<RasterCanvas>(bitmap));
    const Stage::InPixels inPixels(stage);
    return target.alphaBlend({area.left, area.top, bitmap->width(), bitmap->height()}, memory,
                             {0, 0, bitmap->width(), bitmap->height()}, {.AlphaFormat = platform::AC_SRC_ALPHA});
}

} // namespace

bool EnhancedPlayer::gradientFill(RecordReader& record) {
    record.skip(boundsSize);
    const std::uint32_t vertexCount = record.u32();
    const std::uint32_t shapeCount = record.u32();
    const std::uint32_t mode = record.u32();
    constexpr std::size_t vertexSize = 16;
    if (vertexCount > record.left() / vertexSize || mode > triangles) {
        throw BrokenRecord();
    }
    std::vector<Vertex> vertices(vertexCount);
    for (Vertex& vertex : vertices) {
        vertex = readVertex(record);
    }
    const auto next = [&]() -> const Vertex& {
        const std::uint32_t index = record.u32();
        if (index >= vertices.size()) {
            throw BrokenRecord();
        }
        return vertices[index];
    };
    bool isDrawn = true;
    for (std::uint32_t shape = 0; shape < shapeCount; ++shape) {
        const Vertex& first = next();
        const Vertex& second = next();
        isDrawn = (mode == triangles ? fillTriangle(stage_, {first, second, next()})
                                     : fillRectangle(stage_, first, second, mode == vertical)) &&
                  isDrawn;
    }
    return isDrawn;
}

std::span<const EnhancedPlayer::Entry> EnhancedPlayer::gradientRecords() {
    static const Entry entries[]{{EnhancedRecord::gradientFill, &EnhancedPlayer::gradientFill}};
    return entries;
}

} // namespace mox::host
