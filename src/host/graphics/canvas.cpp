#include "host/graphics/canvas.h"

namespace mox::host {

bool Canvas::line(POINT from, POINT to, const Stroke& stroke, const Region& clip) {
    Path path;
    path.moveTo({static_cast<double>(from.x), static_cast<double>(from.y)});
    path.lineTo({static_cast<double>(to.x), static_cast<double>(to.y)});
    return this->stroke(path, stroke, clip);
}

} // namespace mox::host
