#include "host/desktop/borrowedcanvas.h"

namespace mox::host {

RECT BorrowedCanvas::bounds() const {
    const auto present = pixels();
    return present ? present->bounds() : RECT{};
}

/// Where there are no pixels, drawing changes none of them and succeeds.
template <class Draw> auto BorrowedCanvas::draw(Draw draw, decltype(draw(std::declval<RasterCanvas&>())) otherwise) {
    auto present = pixels();
    if (!present) {
        return otherwise;
    }
    RasterCanvas canvas(std::move(present));
    const auto answer = draw(canvas);
    changed();
    return answer;
}

bool BorrowedCanvas::fill(const Region& area, const Paint& paint, const Region& clip) {
    return draw([&](RasterCanvas& canvas) { return canvas.fill(area, paint, clip); }, true);
}

bool BorrowedCanvas::fill(const Path& path, FillRule rule, const Paint& paint, const Region& clip) {
    return draw([&](RasterCanvas& canvas) { return canvas.fill(path, rule, paint, clip); }, true);
}

bool BorrowedCanvas::fillBox(const RECT& box, const Paint& paint, const Region& clip) {
    return draw([&](RasterCanvas& canvas) { return canvas.fillBox(box, paint, clip); }, true);
}

bool BorrowedCanvas::stroke(const Path& path, const Stroke& stroke, const Region& clip) {
    return draw([&](RasterCanvas& canvas) { return canvas.stroke(path, stroke, clip); }, true);
}

bool BorrowedCanvas::line(POINT from, POINT to, const Stroke& stroke, const Region& clip) {
    return draw([&](RasterCanvas& canvas) { return canvas.line(from, to, stroke, clip); }, true);
}

bool BorrowedCanvas::copy(const ImageCopy& copy, const Region& clip) {
    return draw([&](RasterCanvas& canvas) { return canvas.copy(copy, clip); }, true);
}

bool BorrowedCanvas::text(const TextRun& run, const Region& clip) {
    return draw([&](RasterCanvas& canvas) { return canvas.text(run, clip); }, true);
}

platform::COLORREF BorrowedCanvas::pixel(POINT point) const {
    auto present = pixels();
    return present ? RasterCanvas(std::move(present)).pixel(point) : platform::CLR_INVALID;
}

platform::COLORREF BorrowedCanvas::setPixel(POINT point, platform::COLORREF color) {
    return draw([&](RasterCanvas& canvas) { return canvas.setPixel(point, color); }, platform::CLR_INVALID);
}

} // namespace mox::host
