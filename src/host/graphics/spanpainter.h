// Runs of pixels in a row, filled with a brush.
#pragma once

#include "host/graphics/canvas.h"
#include "host/graphics/mixing.h"

namespace mox::host {

/// Fills with one paint, as the bitmap's depth allows. Both outlive it.
class SpanPainter {
public:
    SpanPainter(Bitmap& target, const Paint& paint) noexcept;
    /// A single colour.
    SpanPainter(Bitmap& target, platform::COLORREF color, std::int32_t rop2) noexcept;

    /// True if nothing that it fills would change.
    bool isIdle() const noexcept { return kind_ == Kind::none; }
    /// Pixels from x1 up to, but without, x2, which have to be there.
    void run(int y, int x1, int x2) const noexcept {
        if (kind_ == Kind::plain) {
            mixPlain(target_.pixels(y) + x1, x2 - x1, mix_);
        } else {
            runOther(y, x1, x2);
        }
    }
    /// The same of one pixel of a single colour.
    void dot(int x, int y) const noexcept {
        if (kind_ == Kind::plain) {
            Pixel& pixel = target_.pixels(y)[x];
            pixel = mix_(pixel);
        } else {
            runOther(y, x, x + 1);
        }
    }
    /// All rows of a rectangle that is there.
    void box(const RECT& area) const noexcept {
        for (int y = area.top; y < area.bottom; ++y) {
            run(y, area.left, area.right);
        }
    }

private:
    enum class Kind { none, plain, solid, hatch, pattern };

    static void mixPlain(Pixel* pixels, int count, Mix mix) noexcept;
    void setSolid(platform::COLORREF color) noexcept;
    void runOther(int y, int x1, int x2) const noexcept;
    void runSolid(int y, int x1, int x2) const noexcept;
    void runHatch(int y, int x1, int x2) const noexcept;
    void runPattern(int y, int x1, int x2) const noexcept;
    void mix(std::byte* row, int x, const Mix& mix) const noexcept;

    Bitmap& target_;
    const Paint* paint_ = nullptr;
    std::int32_t rop2_;
    Kind kind_ = Kind::none;
    std::uint32_t mask_;
    /// Of the colour, and of the ground between the lines of a hatch.
    Mix mix_;
    Mix ground_;
};

} // namespace mox::host
