// A canvas without pixels.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

/// Remembers how far what is drawn on it reaches.
class BoundsCanvas final : public Canvas {
public:
    /// Without end, as far as numbers go.
    RECT bounds() const override;

    bool fill(const Region& area, const Paint& paint, const Region& clip) override;
    bool fill(const Path& path, FillRule rule, const Paint& paint, const Region& clip) override;
    bool stroke(const Path& path, const Stroke& stroke, const Region& clip) override;
    bool copy(const ImageCopy& copy, const Region& clip) override;
    bool text(const TextRun& run, const Region& clip) override;
    platform::COLORREF pixel(POINT) const override { return platform::CLR_INVALID; }
    platform::COLORREF setPixel(POINT point, platform::COLORREF color) override;

    /// What was drawn since the last call; empty if nothing was.
    RECT take() noexcept;

private:
    void include(const RECT& area, const Region& clip);
    void include(const Path& path, double margin, const Region& clip);

    RECT drawn_;
};

/// The least rectangle around both, of which one may be empty.
RECT unitedBounds(const RECT& a, const RECT& b) noexcept;

} // namespace mox::host
