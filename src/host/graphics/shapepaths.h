// The outlines of the standard shapes.
#pragma once

#include "host/graphics/path.h"

#include "platform/gditypes.h"

#include <span>

namespace mox::host {

/// Between two corners.
struct PathBox {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

Path boxPath(const PathBox& box);
Path ellipsePath(const PathBox& box);
/// The corners are quarters of an ellipse of this width and height, no larger than the box.
Path roundBoxPath(const PathBox& box, double width, double height);

} // namespace mox::host
