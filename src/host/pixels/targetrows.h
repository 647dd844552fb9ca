// Rows of a copy's target.
#pragma once

#include "host/graphics/rawpixels.h"

namespace mox::host {

/// Rows of the target, to be changed.
class TargetRows {
public:
    explicit TargetRows(Bitmap& bitmap) : bitmap_(bitmap), mask_(rawMask(bitmap)) {}

    bool isPlain() const noexcept { return bitmap_.isPlain(); }
    /// True if its numbers stand for any colours.
    bool hasTable() const noexcept { return bitmap_.bitsPerPixel() <= 8 && !bitmap_.isMonochrome(); }

    /// As plain pixels.
    template <class Change> void change(int x, int y, std::size_t count, bool isRead, Change change) {
        if (isPlain()) {
            change(bitmap_.pixels(y) + x);
            return;
        }
        row_.resize(count);
        if (isRead) {
            bitmap_.read(x, y, row_);
        }
        change(row_.data());
        bitmap_.write(x, y, row_);
    }

    /// As the numbers that the bitmap holds.
    template <class Change> void changeRaw(int x, int y, std::size_t count, Change change) {
        row_.resize(count);
        std::byte* const row = bitmap_.row(y);
        const int depth = bitmap_.bitsPerPixel();
        for (std::size_t i = 0; i < count; ++i) {
            row_[i] = rawAt(row, depth, x + static_cast<int>(i));
        }
        change(row_.data());
        for (std::size_t i = 0; i < count; ++i) {
            setRawAt(row, depth, x + static_cast<int>(i), row_[i] & mask_);
        }
    }
    /// What the bitmap would hold for plain pixels; null for null.
    const Pixel* toRaw(const Pixel* pixels, std::size_t count, std::vector<Pixel>& place) const {
        if (!pixels) {
            return nullptr;
        }
        place.resize(count);
        host::toRaw(bitmap_, {pixels, count}, place);
        return place.data();
    }

private:
    Bitmap& bitmap_;
    const std::uint32_t mask_;
    std::vector<Pixel> row_;
};

} // namespace mox::host
