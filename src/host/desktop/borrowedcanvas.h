// Drawing into pixels that can be exchanged, and whose holder wants to know.
#pragma once

#include "host/graphics/rastercanvas.h"

namespace mox::host {

class MOX_API BorrowedCanvas : public Canvas {
public:
    RECT bounds() const override;
    std::shared_ptr<Bitmap> bitmap() const override { return pixels(); }
    bool fill(const Region& area, const Paint& paint, const Region& clip) override;
    bool fill(const Path& path, FillRule rule, const Paint& paint, const Region& clip) override;
    bool fillBox(const RECT& box, const Paint& paint, const Region& clip) override;
    bool stroke(const Path& path, const Stroke& stroke, const Region& clip) override;
    bool line(POINT from, POINT to, const Stroke& stroke, const Region& clip) override;
    bool copy(const ImageCopy& copy, const Region& clip) override;
    bool text(const TextRun& run, const Region& clip) override;
    platform::COLORREF pixel(POINT point) const override;
    platform::COLORREF setPixel(POINT point, platform::COLORREF color) override;

protected:
    /// The pixels as they are now; null if there are none.
    virtual std::shared_ptr<Bitmap> pixels() const = 0;
    /// After each drawing.
    virtual void changed() {}

private:
    template <class Draw> auto draw(Draw draw, decltype(draw(std::declval<RasterCanvas&>())) otherwise);
};

} // namespace mox::host
