// The pixels of a copy's source, read as plain ones.
#pragma once

#include "host/graphics/canvas.h"

namespace mox::host {

/// Reads in the order of the columns; memory stays small whatever the width of the source is.
class SourcePixels {
public:
    enum class Access {
        /// From column to column.
        dense,
        /// Single ones, far from each other.
        sparse,
        /// As `dense`, while the rows that are read are written to.
        buffered,
    };

    /// `copy` has to outlive it. The pixels of a monochrome source get the colours of the copy if they `areColored`.
    SourcePixels(const ImageCopy& copy, bool areColored, Access access);

    int width() const noexcept { return bitmap_.width(); }
    int height() const noexcept { return bitmap_.height(); }
    /// True if `at` gives the pixels of the bitmap themselves, in any number and as long as it lives.
    bool isDirect() const noexcept { return bitmap_.isPlain() && access_ != Access::buffered; }

    /// `count` pixels of a row, which have to be there; valid until the next call.
    const Pixel* at(int x, int y, int count) { return isDirect() ? bitmap_.pixels(y) + x : window(x, y, count); }

private:
    const Pixel* window(int x, int y, int count);

    const Bitmap& bitmap_;
    const Access access_;
    const bool isExpanded_;
    const Pixel zero_;
    const Pixel one_;
    std::vector<Pixel> window_;
    int windowX_ = 0;
    int windowY_ = -1;
};

} // namespace mox::host
