// Means of the pixels under each pixel of a smaller or larger picture.
#pragma once

#include "host/pixels/copyaxis.h"
#include "host/pixels/sourcepixels.h"

#include <array>

namespace mox::host {

/// Each pixel of the target is the mean of what it covers of the source, pixels at its edge by the share that it covers of them.
/// So whole factors enlarge to plain blocks. What is outside of the source does not count.
class AverageColumns {
public:
    /// The target's places from `left` to `right` - 1 have to have their nearest ones in the source.
    AverageColumns(SourcePixels& source, const CopyAxis& x, const CopyAxis& y, int left, int right);

    /// Pixels from `left` to `right` - 1 of a row of the target, within those of the constructor.
    void row(int y, int left, int right, Pixel* pixels);

private:
    /// What one place of the target covers: whole places of the source, but for the first and the last one.
    struct Cover {
        int begin = 0;
        int end = 0;
        std::uint32_t first = 0;
        std::uint32_t inner = 0;
        std::uint32_t last = 0;
        std::uint64_t total() const noexcept {
            const auto count = static_cast<std::uint64_t>(end - begin);
            return first + (count > 1 ? last : 0) + (count > 2 ? (count - 2) * inner : 0);
        }
        std::uint32_t weight(int place) const noexcept { return place == begin ? first : place == end - 1 ? last : inner; }
    };
    /// Sums of a row's pixels by their weights, the four bytes each in 32 bits.
    using Sums = std::array<std::uint32_t, 4>;
    struct SumRow {
        int y = -1;
        int left = 0;
        int right = 0;
        std::vector<Sums> sums;
    };

    static Cover coverOf(const CopyAxis& axis, std::int64_t place, int size);
    /// `direct`: the row's pixels if they are at hand, else null.
    Sums sumOf(const Cover& cover, int y, const Pixel* direct);
    const std::vector<Sums>& sumsOf(int y, int left, int right);
    /// By 32 bits: columns of one weight, and totals that fit.
    void smallRow(const Cover& rows, int left, int right, Pixel* pixels);
    void anyRow(const Cover& rows, int left, int right, Pixel* pixels);

    SourcePixels& source_;
    const CopyAxis x_;
    const CopyAxis y_;
    const int left_;
    std::vector<Cover> columns_;
    /// The whole weight of each column if all have the same, else 0.
    std::uint64_t commonTotal_ = 0;
    /// Of the last even and the last odd row: neighbours in the target share rows of the source.
    std::array<SumRow, 2> rows_;
    std::vector<std::uint32_t> smallTotals_;
    std::vector<std::array<std::uint64_t, 4>> totals_;
};

} // namespace mox::host
