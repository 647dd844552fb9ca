// Parts of ellipses as curves.
#pragma once

#include "host/graphics/path.h"
#include "host/graphics/transform.h"

namespace mox::host {

/// An ellipse along the axes.
struct Oval {
    PathPoint center;
    double radiusX = 0;
    double radiusY = 0;
};

/// Where the line from the centre through a point meets it: the angle from which `appendArc` goes on. Angles grow from the
/// positive x axis to the positive y axis.
double angleTowards(const Oval& oval, PathPoint point);
PathPoint pointAt(const Oval& oval, double angle);

/// Continues a path from where it is, which has to be the point at `start`, by `sweep` radians.
void appendArc(Path& path, const Oval& oval, const Transform& transform, double start, double sweep);

} // namespace mox::host
