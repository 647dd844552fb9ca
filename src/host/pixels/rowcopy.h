// A copy of pixels row by row, of any kind.
#pragma once

#include "host/pixels/copyaxis.h"
#include "host/pixels/paintrows.h"
#include "host/pixels/sourcerows.h"
#include "host/pixels/targetrows.h"

#include <optional>

namespace mox::host {

/// The axes of a copy, and what of the target it can reach.
struct Placement {
    CopyAxis x;
    CopyAxis y;
    RECT visible;
    bool isShift() const noexcept { return x.isShift() && y.isShift(); }
    POINT distance() const noexcept {
        return {static_cast<std::int32_t>(x.source().begin - x.target().begin),
                static_cast<std::int32_t>(y.source().begin - y.target().begin)};
    }
};

inline std::size_t widthOf(const pixman_box32_t& box) noexcept {
    return static_cast<std::size_t>(box.x2 - box.x1);
}

class RowCopy {
public:
    /// Of the columns from `left` to `right` - 1. The target, the copy and the source have to outlive it. `isWithin`: the source
    /// is the target, where it is copied to.
    RowCopy(Bitmap& target, const ImageCopy& copy, const Placement& placement, int left, int right, const Bitmap* source,
            bool isWithin);

    /// A box of those columns.
    void copy(const pixman_box32_t& box);

private:
    void mixRow(Pixel* pixels, const Pixel* source, std::size_t count) const;
    void combineRow(const Pixel* source, int x, int y, std::size_t count);
    void combineAt(Pixel* pixels, const Pixel* source, const Pixel* pattern, int x, int y, std::size_t count) const;
    void combineRun(Pixel* pixels, const Pixel* source, const Pixel* pattern, std::size_t count) const;
    bool hasHoles() const noexcept { return hasPaint_ && paint_.hasHoles(); }

    TargetRows target_;
    const ImageCopy& copy_;
    const bool isRaster_;
    const bool hasPaint_;
    const bool isUpwards_;
    PaintRows paint_;
    std::optional<SourceRows> source_;
    std::vector<Pixel> rawSource_;
    std::vector<Pixel> rawPattern_;
};

} // namespace mox::host
