#include "host/graphics/rastercanvas.h"

#include "host/fonts/drawglyphs.h"
#include "host/graphics/rasterfill.h"
#include "host/graphics/rasterstroke.h"
#include "host/pixels/copypixels.h"

namespace mox::host {

bool RasterCanvas::fill(const Region& area, const Paint& paint, const Region& clip) {
    return fillRegion(*bitmap_, area, paint, clip);
}

bool RasterCanvas::fill(const Path& path, FillRule rule, const Paint& paint, const Region& clip) {
    return fillPath(*bitmap_, path, rule, paint, clip);
}

bool RasterCanvas::stroke(const Path& path, const Stroke& stroke, const Region& clip) {
    return strokePath(*bitmap_, path, stroke, clip);
}

bool RasterCanvas::fillBox(const RECT& box, const Paint& paint, const Region& clip) {
    return host::fillBox(*bitmap_, box, paint, clip);
}

bool RasterCanvas::line(POINT from, POINT to, const Stroke& stroke, const Region& clip) {
    return strokeLine(*bitmap_, from, to, stroke, clip);
}

bool RasterCanvas::copy(const ImageCopy& copy, const Region& clip) {
    return copyPixels(*bitmap_, copy, clip);
}

bool RasterCanvas::text(const TextRun& run, const Region& clip) {
    return drawGlyphs(*bitmap_, run, clip);
}

platform::COLORREF RasterCanvas::pixel(POINT point) const {
    if (!Region(bounds()).contains(point)) {
        return platform::CLR_INVALID;
    }
    Pixel pixel = 0;
    bitmap_->read(point.x, point.y, {&pixel, 1});
    return toColor(pixel & 0xFFFFFF);
}

platform::COLORREF RasterCanvas::setPixel(POINT point, platform::COLORREF color) {
    if (!Region(bounds()).contains(point)) {
        return platform::CLR_INVALID;
    }
    const Pixel pixel = toPixel(color);
    bitmap_->write(point.x, point.y, {&pixel, 1});
    return this->pixel(point);
}

} // namespace mox::host
