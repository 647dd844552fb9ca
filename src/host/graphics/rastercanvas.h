// Drawing into the pixels of a bitmap.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

/// Each kind of drawing is a function of its own: `rasterfill.h`, `rasterstroke.h`, `pixels/copypixels.h`,
/// `fonts/drawglyphs.h`. They change nothing outside the bitmap.
class MOX_API RasterCanvas final : public Canvas {
public:
    explicit RasterCanvas(std::shared_ptr<Bitmap> bitmap) : bitmap_(std::move(bitmap)) {}

    RECT bounds() const override { return bitmap_->bounds(); }
    std::shared_ptr<Bitmap> bitmap() const override { return bitmap_; }
    bool fill(const Region& area, const Paint& paint, const Region& clip) override;
    bool fill(const Path& path, FillRule rule, const Paint& paint, const Region& clip) override;
    bool fillBox(const RECT& box, const Paint& paint, const Region& clip) override;
    bool stroke(const Path& path, const Stroke& stroke, const Region& clip) override;
    bool line(POINT from, POINT to, const Stroke& stroke, const Region& clip) override;
    bool copy(const ImageCopy& copy, const Region& clip) override;
    bool text(const TextRun& run, const Region& clip) override;
    platform::COLORREF pixel(POINT point) const override;
    platform::COLORREF setPixel(POINT point, platform::COLORREF color) override;

private:
    const std::shared_ptr<Bitmap> bitmap_;
};

} // namespace mox::host
