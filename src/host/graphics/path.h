// Outlines.
#pragma once

#include "automation/objects/export.h"

#include "platform/gditypes.h"

#include <vector>

namespace mox::host {

/// A place in device pixels. Whole numbers are the pixels' upper left corners for areas, and the pixels themselves for lines of
/// one pixel.
struct PathPoint {
    double x = 0;
    double y = 0;
    bool operator==(const PathPoint&) const = default;
};

/// The same, or the nearest one within 2^28 pixels, far beyond every surface; coordinates that are no numbers count as 0.
PathPoint bounded(PathPoint point) noexcept;

/// Figures of lines and of curves with two control points.
class MOX_API Path {
public:
    enum class Verb : std::uint8_t { move, line, curve, close };

    void moveTo(PathPoint point);
    void lineTo(PathPoint point);
    void curveTo(PathPoint control1, PathPoint control2, PathPoint point);
    void close();
    void append(const Path& other);
    void clear() noexcept;

    bool isEmpty() const noexcept { return verbs_.empty(); }
    const std::vector<Verb>& verbs() const noexcept { return verbs_; }
    /// One point a move or line, three a curve, none a close.
    const std::vector<PathPoint>& points() const noexcept { return points_; }

    /// The same without curves, which become lines that are nowhere further from them than `tolerance` pixels.
    Path flattened(double tolerance = 0.25) const;

    bool operator==(const Path&) const = default;

private:
    std::vector<Verb> verbs_;
    std::vector<PathPoint> points_;
};

} // namespace mox::host
