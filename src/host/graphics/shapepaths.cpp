#include "host/graphics/shapepaths.h"

#include <algorithm>

namespace mox::host {

namespace {

/// How far the control points of a quarter of a circle are from its ends, in radii.
constexpr double roundness = 0.5522847498307936;

} // namespace

Path boxPath(const PathBox& box) {
    Path path;
    // From the upper right corner counterclockwise, the usual direction of shapes; dashes begin there.
    path.moveTo({box.right, box.top});
    path.lineTo({box.left, box.top});
    path.lineTo({box.left, box.bottom});
    path.lineTo({box.right, box.bottom});
    path.close();
    return path;
}

Path ellipsePath(const PathBox& box) {
    return roundBoxPath(box, box.right - box.left, box.bottom - box.top);
}

Path roundBoxPath(const PathBox& box, double width, double height) {
    const double rx = std::clamp(width, 0.0, box.right - box.left) / 2;
    const double ry = std::clamp(height, 0.0, box.bottom - box.top) / 2;
    const double kx = rx * (1 - roundness);
    const double ky = ry * (1 - roundness);
    Path path;
    path.moveTo({box.right, box.top + ry});
    path.curveTo({box.right, box.top + ky}, {box.right - kx, box.top}, {box.right - rx, box.top});
    path.lineTo({box.left + rx, box.top});
    path.curveTo({box.left + kx, box.top}, {box.left, box.top + ky}, {box.left, box.top + ry});
    path.lineTo({box.left, box.bottom - ry});
    path.curveTo({box.left, box.bottom - ky}, {box.left + kx, box.bottom}, {box.left + rx, box.bottom});
    path.lineTo({box.right - rx, box.bottom});
    path.curveTo({box.right - kx, box.bottom}, {box.right, box.bottom - ky}, {box.right, box.bottom - ry});
    path.close();
    return path;
}

} // namespace mox::host
